#include "fitness/logic/ActivityEstimate.h"

#include <cstdint>
#include <limits>

namespace velmora::fitness {

const char* const ActivityLevelHelp =
    "Choose the level that matches how hard the activity felt on the whole:\n\n"
    "Light: easy walking, stretching, housework, golf.\n"
    "Moderate: brisk walking, easy cycling, weight training, doubles tennis.\n"
    "Heavy: jogging, swimming laps, hard cycling, aerobics, singles tennis.\n"
    "Very Heavy: running fast, racing, circuit training, cross-country skiing.\n\n"
    "The estimate takes the whole calories burnt per minute at that level for your body weight "
    "as set in your diet goals (up to 140, up to 160, up to 180 or above), times the minutes.";

int weightColumn(float weight)
{
    if (weight <= 140.0f)
        return 0;
    if (weight <= 160.0f)
        return 1;
    if (weight <= 180.0f)
        return 2;
    return 3;
}

std::optional<int> estimateCalories(int level, float weight, int hours, int minutes)
{
    if (level < OfferedActivityLevels.front() || level > OfferedActivityLevels.back())
        return std::nullopt;
    const std::int64_t duration = std::int64_t{hours} * 60 + minutes;
    if (hours < 0 || minutes < 0)
        return std::nullopt;
    const double perMinute = CaloriesPerMinute[static_cast<std::size_t>(level - 1)]
                                              [static_cast<std::size_t>(weightColumn(weight))];
    const std::int64_t calories = static_cast<std::int64_t>(perMinute) * duration;
    if (calories > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(calories);
}

} // namespace velmora::fitness
