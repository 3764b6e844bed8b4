#pragma once

#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::food {

// "Copy meal from...": the foods of a meal of another date are added to the current meal.

// The day proposed as the source: the latest day before date that holds a meal of the kind with
// at least one food, or nullptr when there is none.
const model::JournalDay* defaultCopySource(const std::vector<model::JournalDay>& days,
                                           const model::CalendarDate& date, int kind);

// The day proposed for "Copy day from...": the latest day before date with a meal that holds at
// least one food, or nullptr when there is none.
const model::JournalDay* latestDayWithFoods(const std::vector<model::JournalDay>& days,
                                            const model::CalendarDate& date);

// The time of day, in minutes after midnight, a new meal of kind on date starts with: the time of
// the same meal on the latest earlier day that has it, else a usual time for the kind (breakfast
// at 8:00, brunch 10:30, lunch 12:30, dinner 18:30, the fifth meal 15:30, the sixth 21:00, the
// others at noon).
int defaultMealMinutes(const std::vector<model::JournalDay>& days, const model::CalendarDate& date,
                       int kind);

// Adds every entry of from to to, summing amounts of foods that to already holds as adding a food
// does. Returns the number of entries copied.
int copyMealEntries(const model::Meal& from, model::Meal& to);

} // namespace velmora::food
