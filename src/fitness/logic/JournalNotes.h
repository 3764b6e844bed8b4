#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "fitness/logic/JournalDays.h"

namespace velmora::model {
struct UserJournal;
}

namespace velmora::fitness {

// The journal notes page: one note text per day and category (model::NoteCategoryNames,
// "Personal", "Professional", "Diet", "Fitness"); an empty text is no note.
inline constexpr int DefaultNoteCategory = 2; // "Diet", selected when the page opens

// Days whose note in the category is not empty, in the order of the user's list.
std::vector<std::size_t> noteDays(const model::UserJournal& journal, int category);

// The note of a date and category as stored (Windows-1252 bytes); empty when the user has no day
// of that date or the category is out of range.
std::string noteOf(const model::UserJournal& journal, const model::CalendarDate& date,
                   int category);

// Storing the shown text: a day of the date gets the text (an empty text clears its note); with
// no day of the date, a day is made only for a text that is not empty, so storing an empty note
// into a day with no other data makes no day.
StorePlan planNoteStore(const model::UserJournal& journal, const model::CalendarDate& date,
                        const std::string& text);

} // namespace velmora::fitness
