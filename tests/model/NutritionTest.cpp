#include <gtest/gtest.h>

#include <cmath>

#include "model/Nutrition.h"
#include "support/Builders.h"

using namespace velmora::model;
using velmora::test::FoodBuilder;

namespace {

class Nutrition : public ::testing::Test
{
protected:
    Nutrition() : defs(velmora::test::standardCatalogue()) { catalogue.setFileEntries(defs); }

    // A food whose amino acids all meet the ideal pattern for 10 g of protein.
    FoodBuilder complete(std::int32_t number)
    {
        FoodBuilder b(defs, number);
        b.value(203, 10.0f);
        for (NutrientId aa : {502, 503, 504, 505, 506, 508, 509, 510, 512})
            b.value(aa, 1.0f); // 100 mg per g of protein, above every reference
        return b;
    }

    std::vector<NutrientDef> defs;
    NutrientCatalogue catalogue;
};

} // namespace

TEST_F(Nutrition, EnergySharesOfAFood)
{
    struct Case
    {
        float protein, fat, carb, energy;
        NutrientId n;
        double expected;
    };
    const Case cases[] = {
        {0, 30, 0, 0, 100, 0.0},       // no energy: 0 whatever the fat
        {0, 20, 0, 100, 100, 100.0},   // 180 % is capped
        {0, 5, 0, 100, 100, 45.0},     // 5 * 9 / 100 * 100
        {0, 0, 10, 200, 101, 20.0},    // 10 * 4 / 200 * 100
        {12.5f, 0, 0, 100, 102, 50.0}, // 12.5 * 4 / 100 * 100
        {0, -1, 0, 90, 100, -10.0},    // a negative share is returned as it is
    };
    for (const auto& c : cases) {
        const FoodItem f = FoodBuilder(defs, 1)
                               .value(203, c.protein)
                               .value(204, c.fat)
                               .value(205, c.carb)
                               .value(208, c.energy);
        EXPECT_NEAR(foodValue(catalogue, f, c.n), c.expected, 1e-9) << c.n << " " << c.energy;
    }
}

TEST_F(Nutrition, PointsNetCarbsAndUnknownNumbers)
{
    const FoodItem f =
        FoodBuilder(defs, 1).value(208, 200).value(204, 10).value(291, 10).value(205, 3);
    EXPECT_DOUBLE_EQ(foodValue(catalogue, f, 103),
                     200 * 0.02 + 10 * 0.08333333333333333 - 4.0 * 0.2);
    EXPECT_NEAR(foodValue(catalogue, f, 103), 4.0333333, 1e-6);
    EXPECT_EQ(foodValue(catalogue, f, 105), 0.0); // carbohydrate 3 less fibre 10
    const FoodItem g =
        FoodBuilder(defs, 1).value(205, 12.5f).value(291, 2.5f).value(208, 0).value(204, 3);
    EXPECT_DOUBLE_EQ(foodValue(catalogue, g, 105), 10.0);
    EXPECT_DOUBLE_EQ(foodValue(catalogue, g, 103),
                     3 * 0.08333333333333333 - 2.5 * 0.2);  // may be negative
    EXPECT_EQ(foodValue(catalogue, g, 301), 0.0);           // not in the catalogue
    EXPECT_EQ(foodValue(NutrientCatalogue{}, g, 205), 0.0); // empty catalogue
    EXPECT_DOUBLE_EQ(foodValue(catalogue, g, 205), 12.5);
}

TEST_F(Nutrition, ProteinScoreUsesTheDeliberatePairings)
{
    EXPECT_EQ(proteinScore(catalogue, complete(1)), 1.0);

    // Row 1 reads 509 against 7 mg/g: 0.05 g in 10 g protein is 5 mg/g, score 5 / 7.
    EXPECT_DOUBLE_EQ(proteinScore(catalogue, complete(1).value(509, 0.05f)),
                     static_cast<double>(0.05f) / 10.0 * 1000.0 * 0.14285714285714285);
    // 506 alone stands for the sulphur amino acids (25 mg/g): 0.2 g -> 20 mg/g -> 0.8.
    EXPECT_NEAR(proteinScore(catalogue, complete(1).value(506, 0.2f)), 0.8, 1e-6);
    // The smallest share wins: leucine 0.11 g -> 11 mg/g of 55 -> 0.2.
    EXPECT_NEAR(proteinScore(catalogue, complete(1).value(506, 0.2f).value(504, 0.11f)), 0.2, 1e-6);
    // No protein: every ratio is a non-number or infinite, the score stays 1.0.
    EXPECT_EQ(proteinScore(catalogue, FoodBuilder(defs, 1).value(509, 0.0f)), 1.0);
    EXPECT_EQ(proteinScore(catalogue, FoodBuilder(defs, 1).value(509, 1.0f)), 1.0);
}

TEST_F(Nutrition, AmountSlotOfDatabaseAndCustomFoods)
{
    const FoodItem db = complete(1001).value(509, 0.05f);
    FoodItem custom = complete(70000).value(509, 0.05f).serving(250.0f);
    EXPECT_EQ(foodValue(catalogue, db, 104), 100.0);
    EXPECT_DOUBLE_EQ(foodValue(catalogue, custom, 104), proteinScore(catalogue, custom));
    EXPECT_EQ(entryFoodValue(catalogue, custom, 104), 250.0);
    EXPECT_EQ(entryValue(catalogue, custom, 2.0f, 104), 500.0);
    EXPECT_EQ(entryValue(catalogue, db, 2.0f, 104), 200.0);
}

TEST_F(Nutrition, EntryValues)
{
    const FoodItem f = complete(1).value(204, 5).value(208, 100).value(509, 0.05f);
    EXPECT_DOUBLE_EQ(entryValue(catalogue, f, 2.5f, 208), 250.0);
    EXPECT_DOUBLE_EQ(entryValue(catalogue, f, 2.5f, 100), 45.0); // shares are not scaled
    EXPECT_DOUBLE_EQ(entryValue(catalogue, f, 2.5f, 1000), proteinScore(catalogue, f) * 10.0 * 2.5);
}

TEST_F(Nutrition, GroupRule)
{
    const FoodItem a = complete(1).value(204, 10).value(208, 100); // 90 kcal of fat
    const FoodItem b =
        FoodBuilder(defs, 2).value(203, 10).value(208, 300).value(509, 0.0f); // no amino acids
    const std::vector<ResolvedEntry> group{{&a, 1.0f}, {&b, 0.5f}};

    EXPECT_DOUBLE_EQ(groupValue(catalogue, group, 208), 250.0);
    EXPECT_DOUBLE_EQ(groupValue(catalogue, group, 100), 10.0 * 9.0 / 250.0 * 100.0);
    EXPECT_DOUBLE_EQ(groupValue(catalogue, group, 102), (10.0 * 4.0 + 5.0 * 4.0) / 250.0 * 100.0);
    // Protein 15 g, each amino acid 1 g -> 66.7 mg/g, above every reference: score 1, result 15.
    EXPECT_DOUBLE_EQ(groupValue(catalogue, group, 1000), 15.0);
    // Tryptophan 0.05 g in 15 g protein: 3.33 mg/g of 7.
    const FoodItem low = complete(3).value(509, 0.05f);
    const std::vector<ResolvedEntry> lowGroup{{&low, 1.0f}, {&b, 0.5f}};
    const double r = static_cast<double>(0.05f) / 15.0 * 1000.0;
    EXPECT_DOUBLE_EQ(groupValue(catalogue, lowGroup, 1000), 15.0 * (r * 0.14285714285714285));

    const std::vector<ResolvedEntry> none;
    for (NutrientId n : {100, 101, 102, 203, 208, 105})
        EXPECT_EQ(groupValue(catalogue, none, n), 0.0) << n;

    // More fat energy than stated energy is capped at 100.
    const FoodItem fatty = FoodBuilder(defs, 4).value(204, 50).value(208, 100);
    const std::vector<ResolvedEntry> fat{{&fatty, 1.0f}};
    EXPECT_EQ(groupValue(catalogue, fat, 100), 100.0);
}

TEST_F(Nutrition, StoredTotalsAgreeWithTheGroupRule)
{
    const FoodItem a = complete(1).value(204, 10.25f).value(208, 101);
    FoodItem c = complete(70000).value(208, 333).serving(40.0f);
    const std::vector<ResolvedEntry> group{{&a, 1.3f}, {&c, 2.0f}, {&a, 0.7f}};
    const auto totals = groupStoredTotals(group);
    for (std::size_t i = 0; i < defs.size(); ++i)
        EXPECT_DOUBLE_EQ(totals[i], groupValue(catalogue, group, defs[i].number)) << defs[i].number;
    for (std::size_t i = defs.size(); i < totals.size(); ++i)
        EXPECT_EQ(totals[i], 0.0);
}
