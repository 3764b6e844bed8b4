#pragma once

#include <string>
#include <utility>
#include <vector>

#include "GroupPlacement.h"
#include "SourceData.h"
#include "model/FoodDatabase.h"
#include "model/Result.h"

namespace velmora::foodsdb {

// A measure's amount as its description shows it: as short as it reads, "0.5", "2", "1.5".
std::string formatAmount(double amount);
// The description foods.db keeps for a measure: the unit alone for an amount of 1, else the amount
// before it ("0.5 cup").
std::string measureDescription(const SourceMeasure& measure);

// The catalogue of a database: every nutrient some food lists, at most 78 of them. When there are
// more, those of the builder's reading order are kept first and then the data's own order decides;
// the kept ones are sorted by kind (energy and macronutrients, minerals, vitamins, lipids, amino
// acids) and within a kind by the reading order. Each entry's short text is the unit and its name
// carries the unit, e.g. "Protein (g)". `dropped` receives the nutrients left out.
std::vector<model::NutrientDef> chooseCatalogue(const SourceData& data,
                                                std::vector<SourceNutrient>* dropped = nullptr);

// Foods numbered 50000 or more read as user-defined in the program, so they move to free numbers
// below 50000: in ascending order, each to the lowest free number above the highest source number
// below 50000. Returns (old, new) pairs; fails when the numbers run out.
model::Result<std::vector<std::pair<int, int>>> renumberFoods(std::vector<SourceFood>& foods);

struct AssembledDatabase
{
    model::FoodDatabase database;
    std::vector<SourceNutrient> droppedNutrients;
    std::vector<std::pair<int, int>> renumbered;
    PlacementCounts placement; // foods placed by name (data that carries no groups)
};

// The whole foods.db content from the data of one release: catalogue, foods ascending by number
// with 78 values each (0 where the data has none), the groups that have foods plus the group that
// names the release, and the intake table. When no food of the data carries a group, each food
// takes the group of its number's first two digits, and the foods those do not place are placed
// by name (placeByName).
model::Result<AssembledDatabase> assembleDatabase(SourceData data, const std::string& release);

} // namespace velmora::foodsdb
