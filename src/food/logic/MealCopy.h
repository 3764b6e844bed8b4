#pragma once

#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::food {

// "Copy meal from...": the foods of a meal of another date are added to the current meal.

// The day proposed as the source: the latest day before date that holds a meal of the kind with
// at least one food, or nullptr when there is none.
const model::JournalDay* defaultCopySource(const std::vector<model::JournalDay>& days,
                                           const model::CalendarDate& date, int kind);

// Adds every entry of from to to, summing amounts of foods that to already holds as adding a food
// does. Returns the number of entries copied.
int copyMealEntries(const model::Meal& from, model::Meal& to);

} // namespace velmora::food
