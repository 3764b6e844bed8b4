#include "model/DateText.h"

#include <ctime>

#include "model/FoodDatabase.h"

namespace velmora::model {

namespace {

std::tm localFields(TimeT t)
{
    const std::time_t tt = static_cast<std::time_t>(t);
    std::tm fields{};
#if defined(_WIN32)
    localtime_s(&fields, &tt);
#else
    localtime_r(&tt, &fields);
#endif
    return fields;
}

constexpr const char* WeekdayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};
constexpr const char* MonthNames[] = {"January",   "February", "March",    "April",
                                      "May",       "June",     "July",     "August",
                                      "September", "October",  "November", "December"};

} // namespace

CalendarDate CalendarDate::fromTime(TimeT t)
{
    const std::tm f = localFields(t);
    return CalendarDate{f.tm_year + 1900, f.tm_mon + 1, f.tm_mday};
}

TimeT CalendarDate::toTime() const
{
    std::tm f{};
    f.tm_year = year - 1900;
    f.tm_mon = month - 1;
    f.tm_mday = day;
    f.tm_isdst = -1;
    return static_cast<TimeT>(std::mktime(&f));
}

long CalendarDate::dayNumber() const
{
    // Days from civil date, proleptic Gregorian calendar.
    const long y = year - (month <= 2 ? 1 : 0);
    const long era = (y >= 0 ? y : y - 399) / 400;
    const long yoe = y - era * 400;
    const long mp = (month + 9) % 12;
    const long doy = (153 * mp + 2) / 5 + day - 1;
    const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

bool sameDay(TimeT a, TimeT b)
{
    return CalendarDate::fromTime(a) == CalendarDate::fromTime(b);
}

std::string longDateText(TimeT t)
{
    const std::tm f = localFields(t);
    // "%A, %B %d, %Y" with English names; %d is the two-digit day of the month.
    return formatText("%s, %s %02d, %d", WeekdayNames[f.tm_wday % 7], MonthNames[f.tm_mon % 12],
                      f.tm_mday, f.tm_year + 1900);
}

std::string shortDateText(int year, int month, int day, bool metric, bool withYear)
{
    if (metric)
        return withYear ? formatText("%d/%d/%d", day, month, year)
                        : formatText("%d/%d", day, month);
    return withYear ? formatText("%d/%d/%d", month, day, year) : formatText("%d/%d", month, day);
}

std::string shortDateText(TimeT t, bool metric, bool withYear)
{
    const CalendarDate d = CalendarDate::fromTime(t);
    return shortDateText(d.year, d.month, d.day, metric, withYear);
}

std::string timeText(int hour, int minute, bool metric)
{
    if (metric)
        return formatText(minute < 10 ? "%d:0%d" : "%d:%d", hour, minute);
    const int shown = hour % 12 == 0 ? 12 : hour % 12;
    if (hour < 12)
        return formatText(minute < 10 ? "%d:0%d AM" : "%d:%d AM", shown, minute);
    return formatText(minute < 10 ? "%d:0%d PM" : "%d:%d PM", shown, minute);
}

std::string timeText(TimeT t, bool metric)
{
    const std::tm f = localFields(t);
    return timeText(f.tm_hour, f.tm_min, metric);
}

} // namespace velmora::model
