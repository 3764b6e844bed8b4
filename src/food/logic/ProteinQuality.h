#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "food/logic/MealEditing.h"

namespace velmora::model {
struct FoodItem;
class NutrientCatalogue;
} // namespace velmora::model

namespace velmora::food {

// Below this much protein per 100 g a food gets no protein quality chart and no sentence.
inline constexpr double ProteinChartMinimum = 0.1;

// The protein quality comparison of one food.
struct ProteinComparison
{
    bool shown = false;         // protein of at least ProteinChartMinimum
    std::array<int, 9> food{};  // mg of each amino acid per g of protein, truncated
    std::array<int, 9> ideal{}; // the ideal pattern, in the same order
    double completeness = 0;    // the food's protein score, 0..1
};
ProteinComparison compareProtein(const model::NutrientCatalogue& catalogue,
                                 const model::FoodItem& food);
// "This foods protein is %0.1lf %% complete." with the completeness in per cent.
std::string completenessSentence(double completeness);

// The data source line of the details: database numbers below 50000 name the data release the
// database was built from (an unknown release reads as "USDA SR15"); others are user defined.
std::string sourceLine(std::int32_t foodNumber, const std::string& release);

// Every catalogue nutrient in catalogue order with the food's value per 100 g, "%.1f"; the
// protein score row (1000), where the catalogue lists one, shows grams of complete protein.
std::vector<NutrientRow> allNutrientRows(const model::NutrientCatalogue& catalogue,
                                         const model::FoodItem& food);

} // namespace velmora::food
