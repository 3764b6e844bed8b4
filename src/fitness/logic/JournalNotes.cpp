#include "fitness/logic/JournalNotes.h"

#include "model/UserDatabase.h"

namespace velmora::fitness {

namespace {

bool validCategory(int category)
{
    return category >= 0 && category < model::NoteCategoryCount;
}

} // namespace

std::vector<std::size_t> noteDays(const model::UserJournal& journal, int category)
{
    if (!validCategory(category))
        return {};
    return daysWhere(journal.days, [category](const model::JournalDay& d) {
        return !d.notes[static_cast<std::size_t>(category)].empty();
    });
}

std::string noteOf(const model::UserJournal& journal, const model::CalendarDate& date, int category)
{
    if (!validCategory(category))
        return {};
    if (const auto day = dayIndexOf(journal, date))
        return journal.days[*day].notes[static_cast<std::size_t>(category)];
    return {};
}

} // namespace velmora::fitness
