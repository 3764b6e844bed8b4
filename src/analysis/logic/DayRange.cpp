#include "analysis/logic/DayRange.h"

#include <algorithm>

#include "model/Journal.h"

namespace velmora::analysis {

namespace {
// More than a day: local dates lie within 14 hours of UTC, and summer time shifts by an hour.
constexpr model::TimeT Margin = 2 * 86400;
} // namespace

model::CalendarDate dateOfDayNumber(long dayNumber)
{
    // Civil date from days, proleptic Gregorian calendar (the inverse of dayNumber()).
    const long z = dayNumber + 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    const long day = doy - (153 * mp + 2) / 5 + 1;
    const long month = mp < 10 ? mp + 3 : mp - 9;
    const long year = yoe + era * 400 + (month <= 2 ? 1 : 0);
    return model::CalendarDate{static_cast<int>(year), static_cast<int>(month),
                               static_cast<int>(day)};
}

long dayNumberOf(model::TimeT t)
{
    return model::CalendarDate::fromTime(t).dayNumber();
}

std::vector<std::size_t> byDate(const std::vector<model::JournalDay>& days,
                                std::vector<std::size_t> positions)
{
    std::stable_sort(positions.begin(), positions.end(),
                     [&](std::size_t a, std::size_t b) { return days[a].date < days[b].date; });
    return positions;
}

namespace detail {

RangeFilter::RangeFilter(model::CalendarDate from, model::CalendarDate to)
    : m_first(from.dayNumber()), m_last(to.dayNumber()),
      m_low(static_cast<model::TimeT>(m_first) * 86400 - Margin),
      m_high(static_cast<model::TimeT>(m_last + 1) * 86400 + Margin)
{
}

bool RangeFilter::holds(model::TimeT t) const
{
    const long n = dayNumberOf(t);
    return n >= m_first && n <= m_last;
}

} // namespace detail

} // namespace velmora::analysis
