#pragma once

#include <array>
#include <optional>

namespace velmora::fitness {

// Activity levels by code (0-5). "Define Activity" offers only Light to Very Heavy (codes 2-5),
// in this order, Light selected first.
inline constexpr int ActivityLevelCount = 6;
inline constexpr std::array<const char*, ActivityLevelCount> ActivityLevelNames = {
    "Resting", "Very Light", "Light", "Moderate", "Heavy", "Very Heavy"};
inline constexpr std::array<int, 4> OfferedActivityLevels = {2, 3, 4, 5};

// The duration that "Define Activity" starts with.
inline constexpr int DefaultActivityHours = 0;
inline constexpr int DefaultActivityMinutes = 30;

// Calories burnt per minute, by table row (level code - 1) and body-weight column.
inline constexpr int WeightColumnCount = 4;
inline constexpr std::array<std::array<double, WeightColumnCount>, 5> CaloriesPerMinute = {{
    {1.2, 1.3, 1.5, 1.7},
    {2.1, 2.5, 2.8, 3.2},
    {6.0, 6.9, 7.9, 8.9},
    {7.5, 8.8, 10.0, 11.3},
    {11.4, 13.2, 15.1, 17.0},
}};

// The column of a body weight as the diet goals hold it (pounds, or kilograms when metric, with
// no conversion): up to 140 column 0, up to 160 column 1, up to 180 column 2, above that 3.
int weightColumn(float weight);

// Calories used by an activity: the table's calories per minute truncated to a whole number
// (2.8 counts as 2), then times the minutes (hours x 60 + minutes). Nothing for a level outside
// 2-5, a negative duration, or a result beyond 32 bits.
std::optional<int> estimateCalories(int level, float weight, int hours, int minutes);

// What "?" beside the activity level shows (message box text).
extern const char* const ActivityLevelHelp;

} // namespace velmora::fitness
