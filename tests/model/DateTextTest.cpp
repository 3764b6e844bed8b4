#include <gtest/gtest.h>

#include "model/DateText.h"

using namespace velmora::model;

TEST(DateText, ShortDatesAndTimes)
{
    EXPECT_EQ(shortDateText(2026, 11, 5, true, false), "5/11");
    EXPECT_EQ(shortDateText(2026, 11, 5, true, true), "5/11/2026");
    EXPECT_EQ(shortDateText(2026, 11, 5, false, false), "11/5");
    EXPECT_EQ(shortDateText(2026, 11, 5, false, true), "11/5/2026");

    struct Case
    {
        int h, m;
        const char* metric;
        const char* imperial;
    };
    const Case cases[] = {
        {0, 0, "0:00", "12:00 AM"},    {0, 5, "0:05", "12:05 AM"},    {9, 30, "9:30", "9:30 AM"},
        {11, 59, "11:59", "11:59 AM"}, {12, 0, "12:00", "12:00 PM"},  {12, 10, "12:10", "12:10 PM"},
        {13, 7, "13:07", "1:07 PM"},   {23, 45, "23:45", "11:45 PM"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(timeText(c.h, c.m, true), c.metric);
        EXPECT_EQ(timeText(c.h, c.m, false), c.imperial);
    }
}

TEST(DateText, CalendarDatesAndLongForm)
{
    const CalendarDate d{2026, 11, 21};
    const TimeT t = d.toTime();
    EXPECT_EQ(CalendarDate::fromTime(t), d);
    EXPECT_EQ(longDateText(t), "Saturday, November 21, 2026");
    EXPECT_EQ(longDateText(CalendarDate{2024, 2, 1}.toTime()), "Thursday, February 01, 2024");
    const CalendarDate epoch{1970, 1, 1};
    const CalendarDate leapDay{2024, 2, 28};
    const CalendarDate march{2024, 3, 1};
    EXPECT_EQ(epoch.dayNumber(), 0);
    EXPECT_EQ(march.dayNumber() - leapDay.dayNumber(), 2);
    EXPECT_TRUE(sameDay(t, t + 3600));
    EXPECT_FALSE(sameDay(t, CalendarDate{2026, 11, 22}.toTime()));
    EXPECT_EQ(shortDateText(t, false, true), "11/21/2026");
}
