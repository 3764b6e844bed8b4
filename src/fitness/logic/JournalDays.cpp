#include "fitness/logic/JournalDays.h"

#include "model/UserDatabase.h"

namespace velmora::fitness {

std::optional<std::size_t> dayIndexOf(const model::UserJournal& journal,
                                      const model::CalendarDate& date)
{
    for (std::size_t i = 0; i < journal.days.size(); ++i)
        if (model::CalendarDate::fromTime(journal.days[i].date) == date)
            return i;
    return std::nullopt;
}

std::string listDateText(const model::User& user, model::TimeT date)
{
    return model::shortDateText(date, user.isMetric(), true);
}

std::optional<std::size_t> lineOfDate(const model::UserJournal& journal,
                                      const std::vector<std::size_t>& listedDays,
                                      const model::CalendarDate& date)
{
    for (std::size_t line = 0; line < listedDays.size(); ++line) {
        const std::size_t day = listedDays[line];
        if (day < journal.days.size() &&
            model::CalendarDate::fromTime(journal.days[day].date) == date)
            return line;
    }
    return std::nullopt;
}

} // namespace velmora::fitness
