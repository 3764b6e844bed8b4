#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "model/FoodItem.h"
#include "model/Nutrients.h"

namespace velmora::foodsdb {

using model::NutrientId;

// What a reader takes from one form of the USDA data, before it becomes a foods.db. Texts are
// Windows-1252 bytes already; amounts are per 100 g of food.

// A nutrient the data defines: its number, its unit ("g", "mg", "kcal", ...) and the data's name
// for it. sourceOrder is the data's own reading order (position in the nutrient definitions, or
// USDA's SR_Order), which ranks nutrients the builder's reading order does not know.
struct SourceNutrient
{
    NutrientId number = 0;
    std::string unit;
    std::string name;
    int sourceOrder = 0;
};

struct SourceMeasure
{
    double amount = 1.0;     // how many of the unit weigh `grams`, e.g. 0.5 (cup)
    std::string description; // the unit, e.g. "cup, chopped"
    double grams = 0.0;
};

// Foods from the packaged archive carry no group; NoGroup marks that.
inline constexpr int NoGroup = -1;

struct SourceFood
{
    int number = 0;
    int group = NoGroup; // the USDA group code as an integer (0100 -> 100)
    std::string name;
    std::vector<SourceMeasure> measures;
    std::vector<std::pair<NutrientId, double>> values; // nutrients the data lists for the food
};

// Reference intakes of one nutrient for the 22 life-stage groups; the second array holds the
// tolerable upper intakes, 0 where the data gives none.
struct SourceIntake
{
    NutrientId number = 0;
    std::array<float, model::LifeStageGroupCount> recommended{};
    std::array<float, model::LifeStageGroupCount> upperLimit{};
};

struct SourceData
{
    std::vector<SourceNutrient> nutrients;
    std::vector<SourceFood> foods;
    std::map<int, std::string> groupNames; // names the data gives for its group codes
    std::vector<SourceIntake> intakes;
};

} // namespace velmora::foodsdb
