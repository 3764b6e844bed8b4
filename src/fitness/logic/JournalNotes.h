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

} // namespace velmora::fitness
