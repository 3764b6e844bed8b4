#pragma once

#include <string>
#include <vector>

#include "model/Journal.h"
#include "model/Nutrition.h"

namespace velmora::model {

class Store;

// Nutrient values of eaten food, from the store's foods (custom foods from 70000, else the food
// database). Entries whose food does not exist count as nothing. Values are in the nutrient's
// own unit (grams, milligrams, kcal, ...) for the amounts eaten.
double eatenValue(const Store& store, const FoodEntry& entry, NutrientId n);
double eatenValue(const Store& store, const Meal& meal, NutrientId n);
double eatenValue(const Store& store, const JournalDay& day, NutrientId n); // all meals
// The entries whose food exists, with their foods.
std::vector<ResolvedEntry> resolveEntries(const Store& store, const Meal& meal);
std::vector<ResolvedEntry> resolveEntries(const Store& store, const JournalDay& day);
// The journal's serving text of an entry; empty when the food is unknown.
std::string entryServingText(const Store& store, const FoodEntry& entry);

} // namespace velmora::model
