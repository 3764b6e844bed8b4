// Food details: the protein quality comparison, the completeness sentence, the source line and
// the nutrient rows.

#include <gtest/gtest.h>

#include <vector>

#include "food/logic/ProteinQuality.h"
#include "model/Nutrition.h"
#include "support/Builders.h"

using namespace velmora;
using test::FoodBuilder;

namespace {

const std::vector<model::NutrientDef>& catalogue()
{
    static const std::vector<model::NutrientDef> c = test::standardCatalogue();
    return c;
}

model::NutrientCatalogue makeCatalogue()
{
    model::NutrientCatalogue c;
    c.setFileEntries(catalogue());
    c.appendComputed();
    return c;
}

// A food of 10 g protein whose amino acids are the ideal pattern times factor.
model::FoodItem patterned(double factor)
{
    FoodBuilder b(catalogue(), 100, "Patterned");
    b.value(203, 10.0f);
    for (const auto& row : model::IdealProtein)
        b.value(row.nutrient, static_cast<float>(row.reference * factor * 10.0 / 1000.0));
    return b;
}

TEST(ProteinQuality, TheLimitingAminoAcidSetsTheCompletenessAndBarsAreTruncated)
{
    const auto cat = makeCatalogue();
    // Lysine at half its ideal value: 0.255 g in 10 g protein is 25.5 mg per g against 51.
    model::FoodItem halfLysine = patterned(1.5);
    halfLysine.values[static_cast<std::size_t>(cat.indexOf(505))] = 0.255f;
    struct Case
    {
        const char* what;
        model::FoodItem food;
        bool shown;
        const char* sentence;
        int tryptophan; // the bar of row 1, which reads 509
        int lysine;     // the bar of row 7
    };
    const Case cases[] = {
        {"every ideal value met: 7 x 1.2 = 8.4 and 51 x 1.2 = 61.2", patterned(1.2), true,
         "This foods protein is 100.0 % complete.", 8, 61},
        {"half the lysine: 25.4999 truncated", halfLysine, true,
         "This foods protein is 50.0 % complete.", 10, 25},
        {"no amino acid data", FoodBuilder(catalogue(), 200).value(203, 8.0f), true,
         "This foods protein is 0.0 % complete.", 0, 0},
        // 0.0209 g in 3 g protein is 6.97 mg per g; 0.1 g lysine is 33.3.
        {"truncated, not rounded",
         FoodBuilder(catalogue(), 1).value(203, 3.0f).value(509, 0.0209f).value(505, 0.1f), true,
         "This foods protein is 0.0 % complete.", 6, 33},
        {"exactly a tenth of a gram", FoodBuilder(catalogue(), 1).value(203, 0.1f), true,
         "This foods protein is 0.0 % complete.", 0, 0},
        {"below a tenth: no chart", FoodBuilder(catalogue(), 1).value(203, 0.05f), false, "", 0, 0},
        {"no protein", FoodBuilder(catalogue(), 1), false, "", 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto r = food::compareProtein(cat, c.food);
        ASSERT_EQ(r.shown, c.shown);
        if (!r.shown)
            continue;
        EXPECT_EQ(r.ideal, (std::array<int, 9>{7, 18, 25, 25, 27, 32, 51, 47, 55}));
        EXPECT_EQ(food::completenessSentence(r.completeness), c.sentence);
        EXPECT_EQ(r.food[0], c.tryptophan);
        EXPECT_EQ(r.food[6], c.lysine);
    }
}

TEST(FoodDetails, SourceLine)
{
    EXPECT_EQ(food::sourceLine(49999, "USDA SR24"), "Source: USDA SR24 Database");
    EXPECT_EQ(food::sourceLine(49999, ""), "Source: USDA SR15 Database");
    EXPECT_EQ(food::sourceLine(50000, "USDA SR24"), "Source: User defined");
    EXPECT_EQ(food::sourceLine(70001, ""), "Source: User defined");
}

TEST(FoodDetails, EveryCatalogueNutrientInOrderWithCompleteProteinForTheScore)
{
    model::NutrientCatalogue cat;
    std::vector<model::NutrientDef> entries = catalogue();
    entries.push_back({1000, "g", "Complete protein"});
    cat.setFileEntries(entries);
    cat.appendComputed();
    model::FoodItem food = patterned(1.5);
    food.values[static_cast<std::size_t>(cat.indexOf(505))] = 0.255f; // score 0.5
    food.values[static_cast<std::size_t>(cat.indexOf(208))] = 120.0f;
    const auto rows = food::allNutrientRows(cat, food);
    ASSERT_EQ(rows.size(), cat.entries().size());
    EXPECT_EQ(rows[0].name, "Protein");
    EXPECT_EQ(rows[0].value, "10.0");
    EXPECT_EQ(rows[14].name, "Complete protein");
    EXPECT_EQ(rows[14].value, "5.0");      // 0.5 x 10 g
    EXPECT_EQ(rows[17].name, "% Protein"); // computed entries follow, each its own value
    EXPECT_EQ(rows[17].value, "33.3");     // 10 x 4 / 120 x 100
}

} // namespace
