#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/Archive.h"
#include "model/Nutrients.h"

namespace velmora::model {
class Store;
struct User;
struct UserJournal;
} // namespace velmora::model

namespace velmora::food {

// The rows of the journal list page: per day the day's totals, under it per meal the meal's
// totals, under each meal per food entry the entry's values, in the chosen nutrient columns.

enum class RowLevel
{
    Day,
    Meal,
    Food
};

// Where a row's record lives: positions in the user's day list, the day's meals and the meal's
// entries (-1 where the row is above that level).
struct JournalRowRef
{
    std::size_t day = 0;
    int meal = -1;
    int entry = -1;

    RowLevel level() const
    {
        return meal < 0 ? RowLevel::Day : (entry < 0 ? RowLevel::Meal : RowLevel::Food);
    }
    bool operator==(const JournalRowRef&) const = default;
};

struct JournalRow
{
    RowLevel level = RowLevel::Day;
    std::string label;          // UTF-8
    std::vector<double> values; // one per column
    JournalRowRef ref;
};

// The chosen columns: the slots up to the first unused one.
std::vector<model::NutrientId> activeColumns(const model::User& user);

// Positions of the days the list shows, newest first: days whose age in whole days at "now" is not
// more than the user's "days in lists" setting (0 or less shows every day).
std::vector<std::size_t> listedDays(const model::UserJournal& journal, model::TimeT now);

// The rows in display order (each day followed by its meals, each meal by its foods). Days and
// meals without a food that exists are left out, as are entries whose food is unknown. Meals are
// listed in meal order (Breakfast first).
std::vector<JournalRow> buildJournalRows(const model::Store& store, model::TimeT now);

// "%.1lf"
std::string columnValueText(double value);

// Removes what a row stands for: the day's meals (and the day, when nothing else is kept in it),
// a meal, or one food entry. A meal left without entries is removed, and a day left empty is
// removed. False when the reference does not point at a record.
bool deleteJournalItem(model::UserJournal& journal, const JournalRowRef& ref);

} // namespace velmora::food
