#pragma once

#include <array>
#include <span>
#include <vector>

#include "model/FoodItem.h"
#include "model/Nutrients.h"

namespace velmora::model {

struct FoodEntry;
struct Meal;
struct JournalDay;
class Store;

// One row of the ideal protein pattern: the amino acid's nutrient number, its label and the
// reference in milligrams per gram of protein. The tryptophan row deliberately reads 509.
struct AminoAcidReference
{
    NutrientId nutrient;
    const char* label;
    int reference;
    double multiplier; // 1 / reference as the design gives it
};
extern const std::array<AminoAcidReference, 9> IdealProtein;

// value(food, n): the amount of nutrient n in 100 g of the food (per serving for custom foods);
// a percentage for 100..102, a ratio 0..1 for 1000. Unknown numbers give 0.
double foodValue(const NutrientCatalogue& catalogue, const FoodItem& food, NutrientId n);

// ProteinScore (1000) of one food: the smallest share of the ideal pattern, 1.0 when none falls
// short (and for a food without protein).
double proteinScore(const NutrientCatalogue& catalogue, const FoodItem& food);

// The accessor placed in front of foodValue for entries and groups: for a custom food, 104 gives
// its stored serving weight in grams.
double entryFoodValue(const NutrientCatalogue& catalogue, const FoodItem& food, NutrientId n);

// value(entry, n) for an entry whose food is already looked up. amount is in units of 100 g
// (servings for custom foods).
double entryValue(const NutrientCatalogue& catalogue, const FoodItem& food, float amount, NutrientId n);

// The eaten foods of a group (a meal, or all meals of a day) with their foods resolved; entries
// whose food does not exist are left out by whoever builds the list.
struct ResolvedEntry
{
    const FoodItem* food;
    float amount;
};

// value(group, n) by the group rule: energy shares from the group's sums, protein weighted by the
// group's amino-acid score for 1000, sums otherwise.
double groupValue(const NutrientCatalogue& catalogue, std::span<const ResolvedEntry> entries, NutrientId n);

// All 78 stored values of a group at once: sum of value x amount per catalogue position (custom
// foods count per serving). The fast path for totals of whole journals.
std::array<double, StoredNutrientCount> groupStoredTotals(std::span<const ResolvedEntry> entries);

} // namespace velmora::model
