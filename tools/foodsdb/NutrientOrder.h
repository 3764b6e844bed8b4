#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "model/Nutrients.h"

namespace velmora::foodsdb {

using model::NutrientId;

// Numbers of nutrients that sum several USDA numbers. USDA numbers stay below 1000, and 1000 is the
// computed protein score, so these sit well clear of both.
inline constexpr NutrientId OmegaThreeSumNumber = 9001; // 621, 629, 631, 851, 852
inline constexpr NutrientId OmegaSixSumNumber = 9002;   // 672, 675, 685, 853, 855
// A sum the builder does not know by name gets the next number from here on.
inline constexpr NutrientId FirstOtherSumNumber = 9003;

// A nutrient summed from several USDA numbers.
struct SumNutrient
{
    NutrientId number;
    std::string_view name; // the name the data uses for it
    std::span<const NutrientId> parts;
};
std::span<const SumNutrient> sumNutrients();
// The sum number for a data name such as "Omega-3", if the builder knows it.
std::optional<NutrientId> sumNumberForName(std::string_view name);

// Kinds of nutrients in the order a catalogue reads: energy and macronutrients first, then
// minerals, vitamins, lipids and amino acids.
enum class NutrientKind
{
    General,
    Mineral,
    Vitamin,
    Lipid,
    AminoAcid,
    Other,
};

// Kind of a nutrient number, from the USDA numbering ranges.
NutrientKind kindOf(NutrientId number);

// The builder's reading order: each nutrient it knows, with the name the catalogue shows (the unit
// is added from the data). Sorted by kind, then as a reader would look for them.
struct KnownNutrient
{
    NutrientId number;
    std::string_view name;
};
std::span<const KnownNutrient> knownNutrients();
// Position of a number in knownNutrients(), or -1.
int knownRank(NutrientId number);

} // namespace velmora::foodsdb
