#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/Nutrients.h"

namespace velmora::model {

struct User;

// Edits of the settings kept in the user's profile record. Each returns whether anything changed.

// Metric units (kg/cm, day-first dates, 24-hour clock) and the days shown in lists (1..1067).
bool setUnitsAndDays(User& user, bool metric, std::int32_t daysInLists);
// The food page's list: 0 Custom, 1 Recent, 2 All Foods.
bool setFoodListMode(User& user, std::int32_t mode);
// The journal list's nutrient columns, slot by slot (at most 10; the rest keep theirs). A slot
// that shows another nutrient than before starts again from the default width.
bool setListColumns(User& user, std::span<const NutrientId> chosen);
// The width in pixels of a journal list column (0 is the date column); out of range does nothing.
bool setListColumnWidth(User& user, std::size_t column, std::int32_t width);

} // namespace velmora::model
