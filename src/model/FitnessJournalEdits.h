#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::model {

struct User;
struct UserJournal;

// The edits of a user's health entries, notes and workouts, for the health, notes and fitness log
// pages and their dialogs. A day is found by its calendar date (the first day of the list on that
// date) and appended, stamped with the date's local midnight, when something is stored into a
// date the user has no day of. Texts are Windows-1252 bytes.

// Stores a page's working health entry into the day of date: the day's entry is replaced (an
// empty entry clears it); with no day of the date, a day holding the entry is appended only when
// the entry is not empty (HealthEntry::isEmpty). True when a record changed (storing the entry a
// day already holds, byte for byte, changes nothing).
bool storeHealthEntry(UserJournal& journal, const CalendarDate& date, const HealthEntry& entry);

// "De&lete Entry": the entry of the day of date becomes a fresh empty one (mood "OK"). False when
// the user has no day of that date.
bool clearHealthEntry(UserJournal& journal, const CalendarDate& date);

// Stores the notes page's text of a category (0 to NoteCategoryCount - 1) into the day of date:
// the day's note is replaced (an empty text clears it); with no day of the date, a day is made
// only for a text that is not empty. True when a record changed; false for a category out of
// range.
bool storeNote(UserJournal& journal, const CalendarDate& date, int category,
               const std::string& text);

// Each set's number becomes the count of earlier sets of the same exercise (the first is 0, shown
// as Set 1): sets A, B, A, A are numbered 0, 0, 1, 2.
void renumberSets(std::vector<ExerciseRecord>& sets);

// Where a recorded workout lives: positions in the user's days and in that day's workouts.
struct WorkoutPlace
{
    std::size_t day = 0;
    std::size_t workout = 0;
};

// "OK" of "Do Routine": the sets are renumbered and the workout is appended to the workouts of the
// day of its date, a new day being appended when the user has none. When from names the workout's
// old place (an edit), it is taken out of that day first, so a changed date moves it. Returns the
// workout's new place.
WorkoutPlace commitWorkout(UserJournal& journal, WorkoutEntry workout,
                           std::optional<WorkoutPlace> from);

// "Delete" of the fitness log: removes the workout at place. False when there is none.
bool deleteWorkout(UserJournal& journal, const WorkoutPlace& place);

// "Columns..." of the fitness log: the ten field slots (-1 for empty; slots after the first empty
// one are emptied too). An emptied slot loses its saved width.
void setFitnessColumns(User& user, const std::array<int, 10>& chosen);
// A column of the fitness log resized by the user: column 0 is the date, 1-10 the field slots.
// A column out of range or a negative width changes nothing.
void setFitnessColumnWidth(User& user, int column, int width);

} // namespace velmora::model
