#pragma once

#include <cstdint>
#include <vector>

#include "model/Nutrients.h"

namespace velmora::model {
class FoodDatabase;
}

namespace velmora::food {

// One database food in the food finder's ranking.
struct RankRecord
{
    std::int32_t index; // position in the food database's food list
    float a;            // value of the first nutrient per 100 g
    float b;            // value of the second nutrient per 100 g
};

enum class RankDirection
{
    High = 0,
    Low = 1
};

// Ranks every database food (custom foods take no part) by
// score = A / largest A x (+1 High, -1 Low) + B / largest B x (+1 High, -1 Low), largest first.
// The largest values start at 0; when a largest value is 0 that nutrient's share counts as 0.
// Equal scores keep no particular order.
std::vector<RankRecord> rankFoods(const model::FoodDatabase& foods, model::NutrientId first,
                                  RankDirection firstDirection, model::NutrientId second,
                                  RankDirection secondDirection);

// The score of one record against the largest values.
double rankScore(const RankRecord& r, float largestA, float largestB, RankDirection firstDirection,
                 RankDirection secondDirection);

} // namespace velmora::food
