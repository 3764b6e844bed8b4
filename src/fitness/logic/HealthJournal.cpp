#include "fitness/logic/HealthJournal.h"

#include "model/UserDatabase.h"

namespace velmora::fitness {

std::vector<std::size_t> healthEntryDays(const model::UserJournal& journal)
{
    return daysWhere(journal.days, [](const model::JournalDay& d) { return !d.health.isEmpty(); });
}

std::optional<std::size_t> previousValuesDay(const model::UserJournal& journal,
                                             const model::CalendarDate& date)
{
    const long limit = date.dayNumber();
    std::optional<std::size_t> best;
    long bestDay = 0;
    for (std::size_t i = 0; i < journal.days.size(); ++i) {
        const model::JournalDay& day = journal.days[i];
        if (day.health.isEmpty())
            continue;
        const long n = model::CalendarDate::fromTime(day.date).dayNumber();
        if (n < limit && (!best || n > bestDay)) {
            best = i;
            bestDay = n;
        }
    }
    return best;
}

bool previousValuesEnabled(const model::UserJournal& journal)
{
    for (const model::JournalDay& day : journal.days)
        if (!day.health.isEmpty())
            return true;
    return false;
}

PendingDelete::LoadSteps PendingDelete::beginLoad()
{
    LoadSteps steps;
    steps.storeShownDay = !m_pending;
    steps.clearDayEntry = m_pending;
    m_pending = false;
    return steps;
}

model::HealthEntry entryToShow(const model::UserJournal& journal, const model::CalendarDate& date,
                               const PendingDelete::LoadSteps& steps)
{
    if (steps.clearDayEntry)
        return {};
    if (const auto day = dayIndexOf(journal, date))
        return journal.days[*day].health;
    return {};
}

} // namespace velmora::fitness
