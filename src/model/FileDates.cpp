#include "model/FileDates.h"

#include <ctime>
#include <limits>

namespace velmora::model {

namespace {

struct Bounds
{
    TimeT first;
    TimeT last;
};

Bounds boundsOf(TimeRange range)
{
    if (range == TimeRange::HandheldFiles)
        return {0, std::numeric_limits<std::int32_t>::max()};
    return {0, std::numeric_limits<std::uint32_t>::max()};
}

// Local midnight of a day given by possibly unnormalised fields (day 32 is the next month's
// first); nullopt when the platform cannot represent it.
std::optional<TimeT> localMidnight(int year, int month, int day)
{
    std::tm f{};
    f.tm_year = year - 1900;
    f.tm_mon = month - 1;
    f.tm_mday = day;
    f.tm_isdst = -1;
    const std::time_t t = std::mktime(&f);
    if (t == static_cast<std::time_t>(-1))
        return std::nullopt; // also 1969-12-31 23:59:59 UTC, which no storable day starts at
    return static_cast<TimeT>(t);
}

} // namespace

bool dateFits(const CalendarDate& date, TimeRange range)
{
    return storableMidnight(date, range).has_value();
}

std::optional<TimeT> storableMidnight(const CalendarDate& date, TimeRange range)
{
    if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31)
        return std::nullopt;
    const Bounds b = boundsOf(range);
    const auto midnight = localMidnight(date.year, date.month, date.day);
    if (!midnight || *midnight < b.first || *midnight > b.last)
        return std::nullopt;
    // Day 31 of a 30-day month comes back as the next month's first day.
    if (CalendarDate::fromTime(*midnight) != date)
        return std::nullopt;
    const auto next = localMidnight(date.year, date.month, date.day + 1);
    if (!next || *next - 1 > b.last)
        return std::nullopt;
    return midnight;
}

CalendarDate firstDateThatFits(TimeRange range)
{
    // The local day holding the range's first second may have begun before it; then the next
    // day is the first.
    const CalendarDate d = CalendarDate::fromTime(boundsOf(range).first);
    if (dateFits(d, range))
        return d;
    const auto next = localMidnight(d.year, d.month, d.day + 1);
    return next ? CalendarDate::fromTime(*next) : d;
}

CalendarDate lastDateThatFits(TimeRange range)
{
    // The local day holding the range's last second mostly ends after it; then the day before
    // is the last.
    const CalendarDate d = CalendarDate::fromTime(boundsOf(range).last);
    if (dateFits(d, range))
        return d;
    const auto midnight = localMidnight(d.year, d.month, d.day);
    return midnight ? CalendarDate::fromTime(*midnight - 1) : d;
}

std::optional<std::uint32_t> userFileTime(TimeT t)
{
    if (t < 0 || t > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(t);
}

std::optional<std::int32_t> handheldFileTime(TimeT t)
{
    if (t < std::numeric_limits<std::int32_t>::min() ||
        t > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(t);
}

} // namespace velmora::model
