#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Nutrients.h"

namespace velmora::model {

inline constexpr std::int32_t FirstCustomFoodNumber = 70000;
inline constexpr std::int32_t FirstUserDefinedNumber = 50000; // labelled "User defined" in details

// One household measure of a food.
struct FoodMeasure
{
    float grams = 0.0f;      // weight of one such measure
    std::string description; // e.g. "cup" or "0.5 cup"; Windows-1252 bytes
};

// One food. Database foods hold values per 100 g; custom foods (number >= 70000) per serving,
// with the serving's weight in grams.
struct FoodItem
{
    std::int32_t number = 0;
    std::int32_t group = 0;
    std::string name; // Windows-1252 bytes
    std::array<float, StoredNutrientCount> values{};
    std::vector<FoodMeasure> measures; // empty for custom foods
    float servingWeight = 0.0f;        // custom foods only

    bool isCustom() const { return number >= FirstCustomFoodNumber; }
    // Stored value at catalogue position i; positions beyond the 78 stored values read as 0.
    float valueAt(int i) const
    {
        return (i >= 0 && i < StoredNutrientCount) ? values[static_cast<std::size_t>(i)] : 0.0f;
    }
};

struct FoodGroup
{
    std::int32_t number = 0;
    std::string name;
};

inline constexpr int LifeStageGroupCount = 22;

// One record of the recommended-intake table: a nutrient and, per life-stage group, the
// recommended daily intake and a second value (the tolerable upper intake for USDA data, 0 where
// there is none). The second values are kept as their raw 32-bit patterns and written back as read.
struct IntakeRecord
{
    NutrientId nutrient = 0;
    std::array<float, LifeStageGroupCount> recommended{};
    std::array<std::uint32_t, LifeStageGroupCount> second{};

    // The second value of group g read as a float (how the food-database builder writes it).
    float upperLimit(int g) const;
    void setUpperLimit(int g, float v);
};

} // namespace velmora::model
