#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "fitness/logic/JournalDays.h"
#include "model/Journal.h"

namespace velmora::model {
struct UserJournal;
}

namespace velmora::fitness {

// The health page's view of the journal: which days hold a health entry worth listing, where
// "Previous Values" comes from, and what loading and storing a day's entry come to. An entry
// counts as empty by HealthEntry::isEmpty (no value, no wake time, no variable use; the mood does
// not count).

// Days whose health entry is not empty, in the order of the user's list ("Previous Entries").
std::vector<std::size_t> healthEntryDays(const model::UserJournal& journal);

// The day "Previous Values" copies from: the latest day dated before date whose entry is not
// empty (the first of equal dates). Nothing on the earliest date or when every earlier entry is
// empty.
std::optional<std::size_t> previousValuesDay(const model::UserJournal& journal,
                                             const model::CalendarDate& date);

// " << &Previous Values" is offered while the user has at least one entry that is not empty.
bool previousValuesEnabled(const model::UserJournal& journal);

// The mark that "De&lete Entry" sets before it reloads the day. While it is set, the load does not
// store the page (that would write the deleted values back), clears the day's entry and shows a
// fresh one; every load clears the mark.
class PendingDelete
{
public:
    struct LoadSteps
    {
        bool storeShownDay = true;  // store the page into the day that was shown first
        bool clearDayEntry = false; // empty the health entry of the day being loaded
    };

    void mark() { m_pending = true; }
    bool pending() const { return m_pending; }
    // The steps of the load that starts now; clears the mark.
    LoadSteps beginLoad();

private:
    bool m_pending = false;
};

// The working entry a load shows: a copy of the day's entry, or a fresh entry (all values 0, mood
// "OK", no variables) when the user has no day of that date or the entry was just deleted.
model::HealthEntry entryToShow(const model::UserJournal& journal, const model::CalendarDate& date,
                               const PendingDelete::LoadSteps& steps);

} // namespace velmora::fitness
