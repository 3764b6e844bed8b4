#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/DefinitionEdits.h"
#include "model/Journal.h"

namespace velmora::model {
class Store;
struct FoodItem;
} // namespace velmora::model

namespace velmora::food {

using model::deleteCustomFood;
using model::findCustomFoodByName;
using model::storeCustomFood;
using model::storedNutrientCount;
// The name as it is stored (see model::definitionName).
inline std::string customFoodName(std::string_view typed)
{
    return model::definitionName(typed);
}

// Custom foods describe one serving: values per serving, the serving's weight in grams under
// "Amount (g)". The edits of the custom-food list are the core's (model/DefinitionEdits.h); these
// are the custom foods dialog's grid and the meal saved as a custom food. Callers send a change
// notice when they return a position.

// A grid cell as a number: the whole cell (blanks around it ignored) must read as a number,
// otherwise, and for an empty cell, 0.
float cellValue(std::string_view cell);

// True when a cell is stored as something other than what it shows: text that does not read as a
// number (stored as 0), or a number below 0. An empty cell is a plain 0.
bool cellNeedsNotice(std::string_view cell);

// The same from the texts of the grid: cells[0] is the weight, cells[1..] the nutrients.
int storeCustomFoodCells(model::Store& store, std::string_view typedName,
                         std::span<const std::string> cells);

// The grid texts of a custom food: the weight, then one "%.1f" value per stored nutrient.
std::vector<std::string> customFoodCells(const model::Store& store, const model::FoodItem& food);

// A new custom food made of a whole meal: weight = the meal's "Amount (g)", each nutrient = the
// meal's value of it. Always appended, even when the name is taken. Returns its position, or -1
// for an empty name.
int saveMealAsCustomFood(model::Store& store, const model::Meal& meal, std::string_view typedName);

} // namespace velmora::food
