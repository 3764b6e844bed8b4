#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Archive.h"
#include "model/Nutrients.h"

namespace velmora::model {

// The diet handheld numbers a food's values 0 to 33 (the value index). Stored values are tenths
// of their unit: a stored v means v x 0.1.
//   0 base amount in grams (read as 100 for foods numbered below 50001)
//   1..5, 8, 9, 13..32 nutrients (see TandryValueNutrients)
//   6, 7 carried as read and written back, no nutrient
//   10, 11, 12 per cent of energy from fat, carbohydrate and protein (computed, not stored)
//   33 points value (computed, not stored)
inline constexpr int TandryValueCount = 34;
inline constexpr std::uint32_t FirstStoredBaseAmountId = 50001;

// The value index of each of the 26 16-bit values, in the order of the file.
inline constexpr std::array<int, 26> TandryWordOrder = {
    0, 1, 3, 4, 5, 6, 7, 9, 8, 2, 13, 14, 15, 16, 17, 18, 21, 22, 19, 20, 27, 28, 31, 32, 29, 30};
// The value index of each of the 4 float values that follow them.
inline constexpr std::array<int, 4> TandryFloatOrder = {23, 24, 25, 26};

// The NutrientId of each value index; 0 where the index names no nutrient.
inline constexpr std::array<NutrientId, TandryValueCount> TandryValueNutrients = {
    0,   208, 205, 203, 204, 606, 0,   0,   601, 291, 0,   0,   0,   301, 304, 305, 303,
    309, 312, 307, 410, 317, 306, 318, 401, 324, 394, 404, 405, 406, 417, 415, 418, 0};

// One household measure of a handheld food: an amount in tenths of a gram and its text.
struct TandryMeasure
{
    std::uint16_t amount = 0;
    std::string text;
};

// One handheld food. File order: id, name, the 26 16-bit values, the 4 floats, the measures.
struct TandryFood
{
    std::uint32_t id = 0;
    std::string name;
    std::array<std::uint16_t, 26> words{}; // in file order (TandryWordOrder)
    std::array<float, 4> floats{};         // in file order (TandryFloatOrder), kept as read
    std::vector<TandryMeasure> measures;

    // The stored value of a value index, before the tenths are applied: the 16-bit value or the
    // float. 0 for the computed indexes and for indexes outside 0..33.
    double stored(int index) const;
    // True for the indexes the file stores (0 to 9 and 13 to 32).
    static bool isStored(int index);
    // Sets a stored value; a float index receives raw as a float.
    void setStored(int index, std::uint16_t raw);
    // The value in its unit (grams, kcal, per cent, points): stored x 0.1, the computed values,
    // 100 grams as the base amount of a food numbered below 50001, and 0 for indexes 34 and up.
    double value(int index) const;

    void read(ArchiveReader& in);
    void write(ArchiveWriter& out) const;
};

inline constexpr std::size_t MinTandryFoodSize = 4 + 1 + 26 * 2 + 4 * 4 + 4;

} // namespace velmora::model
