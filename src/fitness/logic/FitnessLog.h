#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Archive.h"

namespace velmora::model {
struct SharedData;
struct User;
struct UserJournal;
} // namespace velmora::model

namespace velmora::fitness {

// The fitness log page: per listed day a day row, under it a row per workout, under each workout
// a row per set with the values of the chosen field columns. Texts are UTF-8.

enum class FitnessRowKind
{
    Day,
    Workout,
    Set
};

// Where a row's record lives: positions in the user's days, the day's workouts and the workout's
// sets (-1 where the row is above that level).
struct FitnessRowRef
{
    std::size_t day = 0;
    int workout = -1;
    int set = -1;

    FitnessRowKind kind() const
    {
        return workout < 0 ? FitnessRowKind::Day
                           : (set < 0 ? FitnessRowKind::Workout : FitnessRowKind::Set);
    }
    bool operator==(const FitnessRowRef&) const = default;
};

struct FitnessRow
{
    FitnessRowRef ref;
    std::string label;
    std::vector<std::string> cells; // set rows: one per chosen field column; empty otherwise
};

// The chosen field columns: the user's field slots up to the first empty one (-1).
std::vector<std::int32_t> fitnessColumns(const model::User& user);

// Column widths in pixels: "Date" is 150 unless a width was saved; a field column takes its saved
// width, or the width of its header text plus 15. slot is the field slot, 0-9.
inline constexpr int DateColumnDefaultWidth = 150;
int dateColumnWidth(const model::User& user);
int fieldColumnWidth(const model::User& user, int slot, int headerTextWidth);

// The days the page lists, in the order of the user's list: days with at least one workout whose
// age in whole days at now ((now - date) / 86400, truncated) is not more than the user's "days in
// lists" setting (a setting of 0 or less lists every such day).
std::vector<std::size_t> fitnessLogDays(const model::UserJournal& journal, model::TimeT now);

// All rows in display order. Day rows read "%s - %.0lf Calories" (date, the sum of the calories
// of the day's workouts); workout rows "%s @ %s" (routine, time); set rows "%s [set %d]" (exercise,
// set number + 1). A workout whose routine no longer exists ends its day's listing; a set of an
// exercise that no longer exists is left out.
std::vector<FitnessRow> fitnessLogRows(const model::SharedData& shared,
                                       const model::UserJournal& journal, model::TimeT now);

// The status text of a selected row: a workout row's text, "%s : %s [set %d]" (workout text,
// exercise, set number + 1) for a set row, empty for a day row or a reference to nothing.
std::string fitnessStatusText(const model::SharedData& shared, const model::UserJournal& journal,
                              const FitnessRowRef& ref);

// "Edit..." and "Delete" act on the workout of a workout or set row.
bool workoutRowSelected(const FitnessRowRef* ref);

} // namespace velmora::fitness
