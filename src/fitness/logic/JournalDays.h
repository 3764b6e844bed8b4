#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::model {
struct User;
struct UserJournal;
} // namespace velmora::model

namespace velmora::fitness {

// The pages of this subsystem show one calendar day; a journal day belongs to the date on which
// its time stamp falls in local time.

// Position of the first day of the user's list on that date, or nothing.
std::optional<std::size_t> dayIndexOf(const model::UserJournal& journal,
                                      const model::CalendarDate& date);

// The text of a day in the date lists ("Previous Entries", the fitness log's day rows): the short
// date in the user's order (day first when metric), always with the year, since these lists
// reach back over years.
std::string listDateText(const model::User& user, model::TimeT date);

// Positions of the days for which keep(day) holds, in the order of the user's list.
template <typename Predicate>
std::vector<std::size_t> daysWhere(const std::vector<model::JournalDay>& days, Predicate keep)
{
    std::vector<std::size_t> out;
    for (std::size_t i = 0; i < days.size(); ++i)
        if (keep(days[i]))
            out.push_back(i);
    return out;
}

// The line of a date list to select for a date: the first listed day on that date, or nothing.
std::optional<std::size_t> lineOfDate(const model::UserJournal& journal,
                                      const std::vector<std::size_t>& listedDays,
                                      const model::CalendarDate& date);

} // namespace velmora::fitness
