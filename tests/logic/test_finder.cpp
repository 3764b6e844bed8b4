// The food finder's ranking by two nutrients.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "food/logic/FinderRanking.h"
#include "model/FoodDatabase.h"
#include "support/Builders.h"

using namespace velmora;
using food::RankDirection;
using test::FoodBuilder;

namespace {

// Protein and fat per 100 g, chosen so the scores are easy to work by hand (largest 20 and 20).
model::FoodDatabase rankingFoods()
{
    static const std::vector<model::NutrientDef> catalogue = test::standardCatalogue();
    model::FoodDatabase db;
    db.setCatalogue(catalogue);
    db.catalogue().appendComputed();
    db.addFood(FoodBuilder(catalogue, 1, "A").value(203, 20).value(204, 10)); // 1 - 0.5 = 0.5
    db.addFood(FoodBuilder(catalogue, 2, "B").value(203, 10).value(204, 0));  // 0.5 - 0 = 0.5
    db.addFood(FoodBuilder(catalogue, 3, "C").value(203, 0).value(204, 20));  // 0 - 1 = -1
    db.addFood(FoodBuilder(catalogue, 4, "D").value(203, 20).value(204, 0));  // 1 - 0 = 1
    db.addFood(FoodBuilder(catalogue, 5, "E").value(203, 5).value(204, 5));   // 0.25 - 0.25 = 0
    return db;
}

std::vector<std::int32_t> indices(const std::vector<food::RankRecord>& records)
{
    std::vector<std::int32_t> out;
    for (const auto& r : records)
        out.push_back(r.index);
    return out;
}

TEST(FinderRanking, HighProteinLowFat)
{
    const auto ranked =
        food::rankFoods(rankingFoods(), 203, RankDirection::High, 204, RankDirection::Low);
    const auto order = indices(ranked);
    ASSERT_EQ(order.size(), 5u);
    EXPECT_EQ(order[0], 3); // D
    // A and B tie at 0.5; their order is not fixed.
    EXPECT_EQ(
        (std::vector<std::int32_t>{std::min(order[1], order[2]), std::max(order[1], order[2])}),
        (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(order[3], 4); // E
    EXPECT_EQ(order[4], 2); // C
    EXPECT_FLOAT_EQ(ranked[0].a, 20.0f);
    EXPECT_FLOAT_EQ(ranked[0].b, 0.0f);
}

TEST(FinderRanking, BothDirectionsReverseTheOrder)
{
    const auto ranked =
        food::rankFoods(rankingFoods(), 203, RankDirection::Low, 204, RankDirection::High);
    const auto order = indices(ranked);
    EXPECT_EQ(order.front(), 2); // C: -0 + 1
    EXPECT_EQ(order.back(), 3);  // D: -1 + 0
}

TEST(FinderRanking, SameNutrientHighAndLowScoresEveryFoodZero)
{
    const auto ranked =
        food::rankFoods(rankingFoods(), 203, RankDirection::High, 203, RankDirection::Low);
    ASSERT_EQ(ranked.size(), 5u);
    for (const auto& r : ranked)
        EXPECT_DOUBLE_EQ(food::rankScore(r, 20.0f, 20.0f, RankDirection::High, RankDirection::Low),
                         0.0);
}

TEST(FinderRanking, AZeroLargestValueCountsAsAShareOfZero)
{
    // No food has fibre: its largest value stays 0 and the ranking is by protein alone.
    const auto ranked =
        food::rankFoods(rankingFoods(), 291, RankDirection::Low, 203, RankDirection::High);
    ASSERT_EQ(ranked.size(), 5u);
    std::vector<float> protein;
    for (const auto& r : ranked) {
        EXPECT_FLOAT_EQ(r.a, 0.0f);
        const double score =
            food::rankScore(r, 0.0f, 20.0f, RankDirection::Low, RankDirection::High);
        EXPECT_TRUE(std::isfinite(score));
        EXPECT_DOUBLE_EQ(score, r.b / 20.0);
        protein.push_back(r.b);
    }
    EXPECT_TRUE(std::is_sorted(protein.rbegin(), protein.rend()));
    // Both largest values 0: every score is 0 and every food is still listed.
    const auto none =
        food::rankFoods(rankingFoods(), 291, RankDirection::High, 291, RankDirection::High);
    EXPECT_EQ(none.size(), 5u);
}

TEST(FinderRanking, ComputedNutrientsRankToo)
{
    static const std::vector<model::NutrientDef> catalogue = test::standardCatalogue();
    model::FoodDatabase db;
    db.setCatalogue(catalogue);
    db.catalogue().appendComputed();
    db.addFood(FoodBuilder(catalogue, 1, "Lean").value(203, 20).value(204, 1).value(208, 100));
    db.addFood(FoodBuilder(catalogue, 2, "Fatty").value(203, 10).value(204, 30).value(208, 320));
    const auto ranked = food::rankFoods(db, 100, RankDirection::High, 102, RankDirection::Low);
    EXPECT_EQ(ranked[0].index, 1);
    EXPECT_NEAR(ranked[0].a, 30 * 9.0 / 320 * 100, 1e-4); // % Fat
}

} // namespace
