#pragma once

#include <string>

#include "model/Archive.h"

namespace velmora::model {

// A calendar date in local time.
struct CalendarDate
{
    int year = 1970;
    int month = 1; // 1..12
    int day = 1;   // 1..31

    auto operator<=>(const CalendarDate&) const = default;

    // The local calendar date of a time.
    static CalendarDate fromTime(TimeT t);
    // Local midnight of this date (the time a new journal day is stamped with).
    TimeT toTime() const;
    // Days since 1970-01-01 of this date (proleptic Gregorian); differences are whole days.
    long dayNumber() const;
};

// The same calendar day in local time.
bool sameDay(TimeT a, TimeT b);

// "%A, %B %d, %Y" in English, e.g. "Saturday, November 21, 2026".
std::string longDateText(TimeT t);
// Metric: "21/11" or "21/11/2026"; imperial: "11/21" or "11/21/2026". No zero padding.
std::string shortDateText(TimeT t, bool metric, bool withYear);
// Metric: 24-hour "%d:%d", or "%d:0%d" below 10 minutes (so 7:05, never 7:5);
// imperial: 12-hour with " AM"/" PM", hours 0 and 12 show as 12.
std::string timeText(TimeT t, bool metric);
// The same texts from broken-down fields (tests and callers that already hold them).
std::string shortDateText(int year, int month, int day, bool metric, bool withYear);
std::string timeText(int hour, int minute, bool metric);

} // namespace velmora::model
