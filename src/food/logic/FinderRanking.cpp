#include "food/logic/FinderRanking.h"

#include <algorithm>

#include "model/FoodDatabase.h"
#include "model/Nutrition.h"

namespace velmora::food {

namespace {
double share(float value, float largest)
{
    // Every value 0 (or below): no food stands out in this nutrient.
    if (largest == 0.0f)
        return 0.0;
    return static_cast<double>(value) / static_cast<double>(largest);
}

double sign(RankDirection d)
{
    return d == RankDirection::Low ? -1.0 : 1.0;
}
} // namespace

double rankScore(const RankRecord& r, float largestA, float largestB, RankDirection firstDirection,
                 RankDirection secondDirection)
{
    return share(r.a, largestA) * sign(firstDirection) +
           share(r.b, largestB) * sign(secondDirection);
}

std::vector<RankRecord> rankFoods(const model::FoodDatabase& foods, model::NutrientId first,
                                  RankDirection firstDirection, model::NutrientId second,
                                  RankDirection secondDirection)
{
    const model::NutrientCatalogue& catalogue = foods.catalogue();
    std::vector<RankRecord> records;
    records.reserve(foods.foods().size());
    float largestA = 0.0f;
    float largestB = 0.0f;
    std::int32_t index = 0;
    for (const model::FoodItem& f : foods.foods()) {
        const RankRecord r{index++, static_cast<float>(model::foodValue(catalogue, f, first)),
                           static_cast<float>(model::foodValue(catalogue, f, second))};
        largestA = std::max(largestA, r.a);
        largestB = std::max(largestB, r.b);
        records.push_back(r);
    }
    // Scores computed once; sorting by a precomputed key keeps the comparison consistent.
    std::vector<std::pair<double, std::size_t>> keyed;
    keyed.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        keyed.emplace_back(
            rankScore(records[i], largestA, largestB, firstDirection, secondDirection), i);
    std::sort(keyed.begin(), keyed.end(),
              [](const auto& x, const auto& y) { return x.first > y.first; });
    std::vector<RankRecord> sorted;
    sorted.reserve(records.size());
    for (const auto& k : keyed)
        sorted.push_back(records[k.second]);
    return sorted;
}

} // namespace velmora::food
