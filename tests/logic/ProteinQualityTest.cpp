// Food details: the protein quality comparison, the completeness sentence, the source line and
// the nutrient rows.

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "food/logic/ProteinQuality.h"
#include "model/FoodDatabase.h"
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

TEST(ProteinQuality, AFoodMeetingEveryIdealValueIsComplete)
{
    const auto cat = makeCatalogue();
    const auto c = food::compareProtein(cat, patterned(1.2));
    ASSERT_TRUE(c.shown);
    EXPECT_DOUBLE_EQ(c.completeness, 1.0);
    EXPECT_EQ(food::completenessSentence(c.completeness),
              "This foods protein is 100.0 % complete.");
    EXPECT_EQ(c.ideal, (std::array<int, 9>{7, 18, 25, 25, 27, 32, 51, 47, 55}));
    EXPECT_EQ(c.food[0], 8);  // tryptophan row reads 509: 7 x 1.2 = 8.4, truncated
    EXPECT_EQ(c.food[6], 61); // lysine 51 x 1.2 = 61.2
}

TEST(ProteinQuality, TheLimitingAminoAcidSetsTheCompleteness)
{
    const auto cat = makeCatalogue();
    model::FoodItem food = patterned(1.5);
    // Lysine at half its ideal value: 0.255 g in 10 g protein is 25.5 mg per g against 51.
    food.values[static_cast<std::size_t>(cat.indexOf(505))] = 0.255f;
    const auto c = food::compareProtein(cat, food);
    EXPECT_NEAR(c.completeness, 0.5, 1e-6);
    EXPECT_EQ(c.food[6], 25); // 25.4999 truncated toward zero
    EXPECT_EQ(food::completenessSentence(c.completeness), "This foods protein is 50.0 % complete.");
}

TEST(ProteinQuality, ProteinWithoutAminoAcidDataIsZeroComplete)
{
    const auto cat = makeCatalogue();
    const model::FoodItem food = FoodBuilder(catalogue(), 200, "Unknown").value(203, 8.0f);
    const auto c = food::compareProtein(cat, food);
    ASSERT_TRUE(c.shown);
    EXPECT_EQ(c.food, (std::array<int, 9>{}));
    EXPECT_EQ(food::completenessSentence(c.completeness), "This foods protein is 0.0 % complete.");
}

TEST(ProteinQuality, BelowATenthOfAGramThereIsNoChart)
{
    const auto cat = makeCatalogue();
    EXPECT_FALSE(
        food::compareProtein(cat, FoodBuilder(catalogue(), 1, "Oil").value(203, 0.05f)).shown);
    EXPECT_FALSE(food::compareProtein(cat, FoodBuilder(catalogue(), 1, "Water")).shown);
    EXPECT_TRUE(
        food::compareProtein(cat, FoodBuilder(catalogue(), 1, "Tea").value(203, 0.1f)).shown);
}

TEST(ProteinQuality, AminoValuesAreTruncatedNotRounded)
{
    const auto cat = makeCatalogue();
    // 0.0209 g tryptophan in 3 g protein is 6.97 mg per g: the bar shows 6.
    const model::FoodItem food = FoodBuilder(catalogue(), 1, "Beans")
                                     .value(203, 3.0f)
                                     .value(509, 0.0209f)
                                     .value(501 + 4, 0.1f);
    const auto c = food::compareProtein(cat, food);
    EXPECT_EQ(c.food[0], 6);
    EXPECT_EQ(c.food[6], 33); // lysine 0.1 / 3 x 1000 = 33.3
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

TEST(ProteinQuality, RealFoodsFromTheDatabase)
{
    if (!std::filesystem::exists(VELMORA_FOODS_DB))
        GTEST_SKIP() << "foods.db has not been built";
    auto loaded = model::FoodDatabase::load(VELMORA_FOODS_DB);
    ASSERT_TRUE(loaded.ok());
    model::FoodDatabase& db = loaded.value();
    db.catalogue().appendComputed();
    const model::FoodItem* egg = db.findDatabaseFood(1123);
    ASSERT_NE(egg, nullptr);
    const auto c = food::compareProtein(db.catalogue(), *egg);
    ASSERT_TRUE(c.shown);
    EXPECT_EQ(food::completenessSentence(c.completeness),
              "This foods protein is 100.0 % complete.");
    for (std::size_t i = 0; i < c.food.size(); ++i)
        EXPECT_GE(c.food[i], c.ideal[i]) << model::IdealProtein[i].label;
    int shown = 0;
    for (const model::FoodItem& f : db.foods()) {
        const auto r = food::compareProtein(db.catalogue(), f);
        EXPECT_GE(r.completeness, 0.0) << f.number;
        EXPECT_LE(r.completeness, 1.0) << f.number;
        shown += r.shown;
    }
    EXPECT_GT(shown, 1000);
}

} // namespace
