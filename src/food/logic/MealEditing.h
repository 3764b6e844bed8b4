#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/DateText.h"
#include "model/Journal.h"
#include "model/JournalEdits.h"
#include "model/Nutrients.h"

namespace velmora::model {
struct FoodItem;
class NutrientCatalogue;
class Store;
struct User;
struct UserJournal;
} // namespace velmora::model

namespace velmora::food {

// The amount box of the food page: steps of 0.25, never below 0.25, at most 100.
inline constexpr double AmountStep = 0.25;
inline constexpr double AmountFloor = 0.25;
inline constexpr double AmountMaximum = 100.0;
inline constexpr double AmountDefault = 1.0;
// An amount as the box keeps it: below the floor becomes the floor, above the maximum the maximum.
double clampAmount(double amount);

// Grams of the food's measure at index (0-based) x 0.01; 1.0 when there is no such measure.
double measureFactor(const model::FoodItem& food, int measureIndex);

// The meal list's text of an entry: custom foods "%.2lf x %s" (servings, name); database foods
// "%s - %s" (serving text, name), or the name alone when the serving text is empty.
std::string mealRowText(const model::FoodItem& food, float amount);

struct MealRow
{
    std::size_t entry; // position in the meal's entries
    std::int32_t food;
    std::string text; // Windows-1252 bytes
};
// The rows of a meal in meal order; entries whose food no longer exists are left out.
std::vector<MealRow> mealRows(const model::Store& store, const model::Meal& meal);

// A name and a formatted value of the details lists.
struct NutrientRow
{
    std::string name; // Windows-1252 bytes
    std::string value;
};
// The details list of an eaten quantity of a food: one row per listed nutrient ("%.1f"), the
// food's own percentage for 100..102, the value of that quantity otherwise (amount in units of
// 100 g, servings for custom foods). Nutrients the catalogue does not know are skipped.
std::vector<NutrientRow> detailsRows(const model::NutrientCatalogue& catalogue,
                                     const model::FoodItem& food, double amount,
                                     const std::vector<model::NutrientId>& list);

// What each macronutrient pie shows; the user record stores the number.
enum class PieMode
{
    SelectedItem = 0,
    Meal = 1,
    Day = 2,
    Goals = 3
};
PieMode pieModeFromSetting(std::int32_t value);

// The energy shares of fat (100), carbohydrate (101) and protein (102) of what a pie shows.
struct EnergyShares
{
    double fat = 0;
    double carbohydrate = 0;
    double protein = 0;
};
EnergyShares foodShares(const model::NutrientCatalogue& catalogue, const model::FoodItem& food);
EnergyShares mealShares(const model::Store& store, const model::Meal* meal);
EnergyShares dayShares(const model::Store& store, const model::JournalDay* day);
// The user's goal values for 100, 101 and 102 once goals are set; zeros otherwise.
EnergyShares goalShares(const model::User& user);

// The three slices of a pie in drawing order: protein, carbohydrate, fat, each the share's part of
// the three's sum x 100. A zero sum gives three slices of 0.
std::array<double, 3> pieSlicePercents(const EnergyShares& shares);
extern const std::array<const char*, 3> PieSliceLabels; // "Protein", "Carboyhydrates", "Fat"
extern const std::array<model::NutrientId, 3> PieSliceNutrients;

// The journal's edits (finding or creating a day and a meal, adding to a meal, removing entries
// with the days and meals they leave empty) are the core's: model/JournalEdits.h.
using model::addToMeal;
using model::mealForAdding;
using model::removeMealEntry;
// The time of a meal on a date at a time of day (local time).
model::TimeT mealTimeOn(const model::CalendarDate& date, int hour, int minute);

} // namespace velmora::food
