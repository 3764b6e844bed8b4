#pragma once

#include <cstddef>
#include <vector>

#include "model/Archive.h"
#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::analysis {

// The local calendar date of a day number (days since 1970-01-01, as CalendarDate::dayNumber()).
model::CalendarDate dateOfDayNumber(long dayNumber);

// The day number of the local calendar date of a time.
long dayNumberOf(model::TimeT t);

// Positions in days of the journal days whose local date lies from `from` to `to`, both included,
// and that pass `keep`, in the order of the day list. From later than To selects nothing. Only
// days near the range have their local date worked out, so a long journal costs little.
template <class Keep>
std::vector<std::size_t> daysInRange(const std::vector<model::JournalDay>& days,
                                     model::CalendarDate from, model::CalendarDate to, Keep&& keep);

// The same positions ordered by date (days of equal date keep their list order): the order in which
// a curve runs.
std::vector<std::size_t> byDate(const std::vector<model::JournalDay>& days,
                                std::vector<std::size_t> positions);

namespace detail {
// True when t may lie on a local date from `from` to `to`: a cheap test on the raw time, with a
// margin wider than any time zone offset, before the exact local date is worked out.
struct RangeFilter
{
    RangeFilter(model::CalendarDate from, model::CalendarDate to);
    bool mayHold(model::TimeT t) const { return t >= m_low && t <= m_high; }
    bool holds(model::TimeT t) const;

    long m_first;
    long m_last;
    model::TimeT m_low;
    model::TimeT m_high;
};
} // namespace detail

template <class Keep>
std::vector<std::size_t> daysInRange(const std::vector<model::JournalDay>& days,
                                     model::CalendarDate from, model::CalendarDate to, Keep&& keep)
{
    std::vector<std::size_t> out;
    if (to < from)
        return out;
    const detail::RangeFilter filter(from, to);
    for (std::size_t i = 0; i < days.size(); ++i)
        if (filter.mayHold(days[i].date) && filter.holds(days[i].date) && keep(days[i]))
            out.push_back(i);
    return out;
}

} // namespace velmora::analysis
