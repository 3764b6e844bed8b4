#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Journal.h"

namespace velmora::model {
class Store;
struct FoodItem;
} // namespace velmora::model

namespace velmora::food {

// Custom foods describe one serving: values per serving, the serving's weight in grams under
// "Amount (g)". These functions edit the custom-food list of the shared data; callers mark the
// store modified when they return a position.

// The name as it is stored: blanks trimmed from both ends, first letter upper-cased. Empty when
// only blanks were typed. Texts are Windows-1252 bytes.
std::string customFoodName(std::string_view typed);

// A grid cell as a number: the whole cell (blanks around it ignored) must read as a number,
// otherwise, and for an empty cell, 0.
float cellValue(std::string_view cell);

// How many nutrients a custom food stores: the catalogue's file entries, at most 78.
int storedNutrientCount(const model::Store& store);

// Stores a custom food under the typed name: an existing custom food of exactly that (stored)
// name is overwritten, otherwise a new one takes the next custom-food number and is appended.
// values holds the nutrients in catalogue order; missing ones store 0. Returns the position in
// the custom-food list, or -1 when the name is empty (nothing is stored).
int storeCustomFood(model::Store& store, std::string_view typedName, float weight,
                    std::span<const float> values);

// The same from the texts of the grid: cells[0] is the weight, cells[1..] the nutrients.
int storeCustomFoodCells(model::Store& store, std::string_view typedName,
                         std::span<const std::string> cells);

// The grid texts of a custom food: the weight, then one "%.1f" value per stored nutrient.
std::vector<std::string> customFoodCells(const model::Store& store, const model::FoodItem& food);

// A new custom food made of a whole meal: weight = the meal's "Amount (g)", each nutrient = the
// meal's value of it. Always appended, even when the name is taken. Returns its position, or -1
// for an empty name.
int saveMealAsCustomFood(model::Store& store, const model::Meal& meal, std::string_view typedName);

// Removes the first custom food of exactly this name; false when there is none.
bool deleteCustomFood(model::Store& store, std::string_view name);

// Position of the first custom food of exactly this name, or -1.
int findCustomFoodByName(const model::Store& store, std::string_view name);

} // namespace velmora::food
