#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::model {
struct SharedData;
struct UserJournal;
} // namespace velmora::model

namespace velmora::fitness {

// The "Do Routine" dialog works on a copy of one workout: its sets in order of completion, the
// selected set's value grid with the values of the same set last time, and the notes. Texts of
// records are Windows-1252 bytes; the display texts below are UTF-8.

// A new workout of a routine at a time: calories 0, one set of each of the routine's exercises in
// the routine's order (exercises that no longer exist are skipped), numbered.
model::WorkoutEntry newWorkout(const model::SharedData& shared, const model::Routine& routine,
                               model::TimeT now);

// A new set of an exercise: one empty value per field of the exercise, in its field order.
model::ExerciseRecord newSet(const model::SharedData& shared, std::int32_t exercise);

// The set list's edits, each followed by renumbering. appendSet adds at the end; removeSet takes
// the set at index out (false when there is none); moveSet swaps the set at index with its
// neighbour above (-1) or below (+1) and returns the moved set's new index, or nothing when it
// cannot move that way.
void appendSet(std::vector<model::ExerciseRecord>& sets, model::ExerciseRecord set);
bool removeSet(std::vector<model::ExerciseRecord>& sets, std::size_t index);
std::optional<std::size_t> moveSet(std::vector<model::ExerciseRecord>& sets, std::size_t index,
                                   int direction);

// "Remove" while a set is selected, "Up" while it is not the first, "Down" while not the last.
struct SetButtons
{
    bool remove = false;
    bool up = false;
    bool down = false;
};
SetButtons setButtons(std::size_t count, std::optional<std::size_t> selected);

// The heading above the grid: "%s, Set %d" (exercise, set number + 1); empty when the exercise no
// longer exists.
std::string setHeading(const model::SharedData& shared, const model::ExerciseRecord& set);

// The value grid. The "Field" cells are grey and read-only; "<- Last" is light green when it holds
// a value and grey when empty.
struct Rgb
{
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const Rgb&) const = default;
};
inline constexpr Rgb FieldCellColour{200, 200, 200};
inline constexpr Rgb LastValueColour{192, 255, 192};
inline constexpr Rgb NoLastValueColour = FieldCellColour;

inline constexpr int FieldColumnWidth = 100;
inline constexpr int ValueColumnWidth = 80;
// "<- Last" takes the grid's width less this.
inline constexpr int LastColumnReserve = 195;

enum class CellKind
{
    Number, // field type 0
    Text,   // field type 1
    Time    // field type 2
};
inline constexpr const char* EmptyTimeCell = "00:00:00";

struct GridRow
{
    std::int32_t field = 0;
    std::string name;
    CellKind kind = CellKind::Number;
    std::string value; // the cell's text: the set's value; a time cell without one reads 00:00:00
    std::string last;  // the value last time; empty when there is none
    Rgb lastColour = NoLastValueColour;
};

// One row per field of the set's exercise, in the exercise's field order; fields that no longer
// exist are skipped. "<- Last" comes from the latest workout of the journal dated before
// workout.time that holds a set of the same exercise with the same set number; exclude is the
// journal's record of the workout being edited, which never counts as its own last time.
std::vector<GridRow> valueGrid(const model::SharedData& shared, const model::UserJournal& journal,
                               const model::WorkoutEntry& workout, std::size_t set,
                               const model::WorkoutEntry* exclude = nullptr);

// Writes the grid's "Value" column into the set: one value per grid row, in row order.
void storeGrid(model::ExerciseRecord& set, const std::vector<GridRow>& grid);

// "<- Previous Notes": the notes of the latest workout of the routine in the journal (by time
// stamp), except exclude, as stored (Windows-1252 bytes); empty when there is none.
std::string previousNotes(const model::UserJournal& journal, std::int32_t routine,
                          const model::WorkoutEntry* exclude = nullptr);

// The workout's time stamp from the date picker's day and the time picker's time of day.
model::TimeT workoutTime(const model::CalendarDate& date, int hour, int minute, int second);

} // namespace velmora::fitness
