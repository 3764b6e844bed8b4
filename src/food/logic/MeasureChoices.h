#pragma once

#include <string>
#include <vector>

namespace velmora::model {
struct FoodItem;
}

namespace velmora::food {

// Weights of the two measures every database food offers besides its own.
inline constexpr double GramWeight = 1.0;
inline constexpr double OunceWeight = 28.349523125; // the international avoirdupois ounce
inline constexpr const char* GramText = "g";
inline constexpr const char* OunceText = "oz";

// The amount box takes up to this many grams or ounces; household measures keep the box's
// ordinary maximum (AmountMaximum).
inline constexpr double WeightAmountMaximum = 1000.0;

// One entry of a food's measure list.
struct MeasureChoice
{
    std::string description; // Windows-1252 bytes, as the list shows it
    double grams = 0.0;      // weight of one such measure
    double maximum = 0.0;    // the largest amount the box accepts with it
    bool isWeight = false;   // "g" or "oz" rather than one of the food's own measures
};

// The measure list of a food: its own household measures in stored order, then "g" and "oz"
// ("g" first for a metric user, "oz" first otherwise). A measure of the food's own named "g" or
// "oz" (many USDA foods list "oz" at 28.35 g) gives way to the exact weight, so neither shows
// twice. Custom foods are counted in servings and get an empty list.
std::vector<MeasureChoice> measureChoices(const model::FoodItem& food, bool metric);

// The amount of a journal entry for count measures of a choice, in units of 100 g
// (count x grams x 0.01). count is clamped to the box's range first: below AmountFloor it becomes
// AmountFloor, above the choice's maximum the maximum; a count that is not finite counts as the
// floor.
double entryAmountFor(const MeasureChoice& choice, double count);

} // namespace velmora::food
