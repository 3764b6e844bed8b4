// The calorie estimate of "Define Activity".

#include <gtest/gtest.h>

#include <optional>

#include "fitness/logic/ActivityEstimate.h"

using namespace velmora::fitness;

TEST(ActivityEstimate, CaloriesUsed)
{
    struct Case
    {
        const char* name;
        int level;
        float weight;
        int hours;
        int minutes;
        std::optional<int> calories;
    };
    const Case cases[] = {
        {"Moderate 1 h at 150: 6.9 counts as 6", 3, 150.0f, 1, 0, 360},
        {"Light 30 min at 175: 2.8 counts as 2", 2, 175.0f, 0, 30, 60},
        {"Heavy at exactly 140: first column", 4, 140.0f, 0, 10, 70},
        {"Heavy at 140.5: second column", 4, 140.5f, 0, 10, 80},
        {"Heavy at exactly 160: second column", 4, 160.0f, 0, 10, 80},
        {"Very Heavy at 180: third column", 5, 180.0f, 0, 10, 150},
        {"Very Heavy above 180: last column", 5, 180.5f, 0, 10, 170},
        {"Hours and minutes add up", 4, 200.0f, 2, 15, 11 * 135},
        {"No time, no calories", 3, 150.0f, 0, 0, 0},
        {"Very Light is not offered", 1, 150.0f, 1, 0, std::nullopt},
        {"No level above Very Heavy", 6, 150.0f, 1, 0, std::nullopt},
        {"Negative minutes", 3, 150.0f, 1, -5, std::nullopt},
        {"Beyond 32 bits", 5, 200.0f, 40000000, 0, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(estimateCalories(c.level, c.weight, c.hours, c.minutes), c.calories);
    }
}
