#pragma once

#include <cstddef>
#include <cstdint>

#include "model/DateText.h"
#include "model/Journal.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// The rules that edit a user's journal, for every page and for velmora-cli: a day is found by its
// calendar date and created when something is added to it; a meal left without entries leaves its
// day, and a day left empty leaves the journal.

// The first day stamped on the date, or nullptr.
JournalDay* findDay(UserJournal& journal, const CalendarDate& date);
const JournalDay* findDay(const UserJournal& journal, const CalendarDate& date);
// The day of the date, appended (stamped with the date's local midnight) when missing.
JournalDay& dayForEditing(UserJournal& journal, const CalendarDate& date);
// The meal to add to: the day of the date and its meal of the kind, each created when missing (a
// new meal gets mealTime).
Meal& mealForAdding(UserJournal& journal, const CalendarDate& date, int kind, TimeT mealTime);
// Adds amount (servings, or units of the food's measure) of a food to a meal: summed into the
// food's entry when the meal holds one, otherwise appended as a new entry.
void addToMeal(Meal& meal, std::int32_t food, float amount);

// Adds every meal of the day on `from` to the day on `to`, meal by meal as adding a food does: the
// entries of a meal of a kind `to` already holds are summed into that meal (into the entry of the
// same food where it has one), a meal of a kind it lacks is appended at the source meal's local
// time of day on `to`; the day of `to` is created when missing. Meals without entries are skipped.
// Returns the number of entries copied; 0, changing nothing, when `from` has no day or no entries
// or is the same date as `to`.
int copyDayMeals(UserJournal& journal, const CalendarDate& from, const CalendarDate& to);

// Removes entry `entry` of meal `meal` of day `day` (positions in the lists). False when there is
// no such entry.
bool removeEntry(UserJournal& journal, std::size_t day, std::size_t meal, std::size_t entry);
// The same for the meal of the kind on the date.
bool removeMealEntry(UserJournal& journal, const CalendarDate& date, int kind, std::size_t entry);
// Removes a whole meal of a day. False when there is no such meal.
bool removeMeal(UserJournal& journal, std::size_t day, std::size_t meal);
// Removes every meal of a day (the day stays while it keeps anything else). False when there is
// no such day.
bool removeMeals(UserJournal& journal, std::size_t day);
// Sets the time of the meal of the kind on the date; false when there is no such meal.
bool setMealTime(UserJournal& journal, const CalendarDate& date, int kind, TimeT time);
// Removes the day when it holds nothing.
void dropDayIfEmpty(UserJournal& journal, std::size_t day);

} // namespace velmora::model
