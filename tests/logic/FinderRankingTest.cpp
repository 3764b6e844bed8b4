// The food finder's ranking by two nutrients.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

#include "food/logic/FinderRanking.h"
#include "model/FoodDatabase.h"
#include "support/Builders.h"

using namespace velmora;
using food::RankDirection;
using test::FoodBuilder;

namespace {

constexpr auto High = RankDirection::High;
constexpr auto Low = RankDirection::Low;

// Protein (203) and fat (204) per 100 g of the foods A to E, chosen so that the scores are easy to
// work by hand (largest 20 and 20); no food has fibre (291).
const std::map<model::NutrientId, std::vector<float>> Amounts{
    {203, {20, 10, 0, 20, 5}}, {204, {10, 0, 20, 0, 5}}, {291, {0, 0, 0, 0, 0}}};

model::FoodDatabase rankingFoods()
{
    static const std::vector<model::NutrientDef> catalogue = test::standardCatalogue();
    model::FoodDatabase db;
    db.setCatalogue(catalogue);
    db.catalogue().appendComputed();
    for (std::size_t i = 0; i < 5; ++i)
        db.addFood(
            FoodBuilder(catalogue, static_cast<std::int32_t>(i + 1), "ABCDE"[i] + std::string())
                .value(203, Amounts.at(203)[i])
                .value(204, Amounts.at(204)[i]));
    return db;
}

TEST(FinderRanking, ScoresAreSharesOfTheLargestValueHighBestFirst)
{
    struct Case
    {
        model::NutrientId a;
        RankDirection da;
        model::NutrientId b;
        RankDirection db;
        std::vector<double> scores; // of A to E
    };
    const Case cases[] = {
        {203, High, 204, Low, {0.5, 0.5, -1, 1, 0}},
        {203, Low, 204, High, {-0.5, -0.5, 1, -1, 0}},
        {203, High, 203, Low, {0, 0, 0, 0, 0}},
        // A largest value of 0 counts as a share of 0: the ranking is by protein alone.
        {291, Low, 203, High, {1, 0.5, 0, 1, 0.25}},
        {291, High, 291, High, {0, 0, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.a << "/" << c.b << " " << int(c.da) << int(c.db));
        const auto ranked = food::rankFoods(rankingFoods(), c.a, c.da, c.b, c.db);
        ASSERT_EQ(ranked.size(), 5u); // every food is listed
        const float largestA = c.a == 291 ? 0.0f : 20.0f, largestB = c.b == 291 ? 0.0f : 20.0f;
        double previous = INFINITY;
        for (const food::RankRecord& r : ranked) {
            const auto i = static_cast<std::size_t>(r.index);
            EXPECT_EQ(r.a, Amounts.at(c.a).at(i));
            EXPECT_EQ(r.b, Amounts.at(c.b).at(i));
            const double score = food::rankScore(r, largestA, largestB, c.da, c.db);
            EXPECT_DOUBLE_EQ(score, c.scores[i]) << "food " << i;
            EXPECT_LE(score, previous);
            previous = score;
        }
    }
}

TEST(FinderRanking, ComputedNutrientsRankToo)
{
    static const std::vector<model::NutrientDef> catalogue = test::standardCatalogue();
    model::FoodDatabase db;
    db.setCatalogue(catalogue);
    db.catalogue().appendComputed();
    db.addFood(FoodBuilder(catalogue, 1, "Lean").value(203, 20).value(204, 1).value(208, 100));
    db.addFood(FoodBuilder(catalogue, 2, "Fatty").value(203, 10).value(204, 30).value(208, 320));
    const auto ranked = food::rankFoods(db, 100, High, 102, Low);
    EXPECT_EQ(ranked[0].index, 1);
    EXPECT_NEAR(ranked[0].a, 30 * 9.0 / 320 * 100, 1e-4); // % Fat
}

} // namespace
