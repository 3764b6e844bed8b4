// The "Do Routine" dialog: a new workout, the set list with its numbering, the value grid with the
// values of last time, and the previous notes.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "WorkoutFixtures.h"
#include "fitness/logic/WorkoutSets.h"

using namespace velmora;
using namespace velmora::fitness;
using test::at;
using test::dayOf;
using test::setOf;
using test::workoutOf;

namespace {

constexpr std::int32_t A = 10;
constexpr std::int32_t B = 11;

std::vector<model::ExerciseRecord> setsOf(const std::vector<std::int32_t>& exercises)
{
    std::vector<model::ExerciseRecord> sets;
    for (std::int32_t e : exercises)
        sets.push_back(setOf(e, 0, {}));
    renumberSets(sets);
    return sets;
}

} // namespace

TEST(WorkoutSets, NumberingAfterEachEdit)
{
    enum class Edit
    {
        None,
        Remove,
        Up,
        Down,
        AddA
    };
    struct Case
    {
        const char* name;
        std::vector<std::int32_t> before;
        Edit edit;
        std::size_t index;
        std::vector<std::int32_t> after;
        std::vector<std::int32_t> numbers; // shown as numbers + 1
        std::optional<std::size_t> selected;
    };
    const Case cases[] = {
        {"A, B, A, A", {A, B, A, A}, Edit::None, 0, {A, B, A, A}, {0, 0, 1, 2}, {}},
        {"removing the second A", {A, B, A, A}, Edit::Remove, 2, {A, B, A}, {0, 0, 1}, {}},
        {"moving B up", {A, B, A, A}, Edit::Up, 1, {B, A, A, A}, {0, 0, 1, 2}, 0},
        {"moving the first A down", {A, B, A, A}, Edit::Down, 0, {B, A, A, A}, {0, 0, 1, 2}, 1},
        {"moving the last A up past B", {A, A, B, A}, Edit::Up, 3, {A, A, A, B}, {0, 1, 2, 0}, 2},
        {"the first cannot move up", {A, B}, Edit::Up, 0, {A, B}, {0, 0}, std::nullopt},
        {"the last cannot move down", {A, B}, Edit::Down, 1, {A, B}, {0, 0}, std::nullopt},
        {"adding an A", {A, B}, Edit::AddA, 0, {A, B, A}, {0, 0, 1}, {}},
    };
    const model::SharedData shared = test::workoutDefinitions();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<model::ExerciseRecord> sets = setsOf(c.before);
        std::optional<std::size_t> selected;
        switch (c.edit) {
        case Edit::None:
            break;
        case Edit::Remove:
            EXPECT_TRUE(removeSet(sets, c.index));
            break;
        case Edit::Up:
            selected = moveSet(sets, c.index, -1);
            break;
        case Edit::Down:
            selected = moveSet(sets, c.index, +1);
            break;
        case Edit::AddA:
            appendSet(sets, newSet(shared, A));
            break;
        }
        std::vector<std::int32_t> exercises;
        std::vector<std::int32_t> numbers;
        for (const model::ExerciseRecord& s : sets) {
            exercises.push_back(s.exercise);
            numbers.push_back(s.setNumber);
        }
        EXPECT_EQ(exercises, c.after);
        EXPECT_EQ(numbers, c.numbers);
        EXPECT_EQ(selected, c.selected);
    }
}

TEST(WorkoutSets, NewWorkoutOfARoutine)
{
    model::SharedData shared = test::workoutDefinitions();
    model::Routine routine{30, 400, "Mixed", {B, 55, A, B}}; // exercise 55 no longer exists
    const model::WorkoutEntry w = newWorkout(shared, routine, 5000);
    EXPECT_EQ(w.routine, 30);
    EXPECT_EQ(w.calories, 0);
    EXPECT_EQ(w.time, 5000);
    ASSERT_EQ(w.exercises.size(), 3u);
    EXPECT_EQ(w.exercises[0].exercise, B);
    EXPECT_EQ(w.exercises[1].exercise, A);
    EXPECT_EQ(w.exercises[2].setNumber, 1); // the second B
    EXPECT_EQ(w.exercises[1].values.size(), 2u);
    EXPECT_EQ(setHeading(shared, w.exercises[2]), "Row, Set 2");
}

TEST(WorkoutSets, ValueGridWithLastTime)
{
    const model::SharedData shared = test::workoutDefinitions();
    model::UserJournal journal;
    journal.days = {
        dayOf({2026, 3, 1},
              {workoutOf(20, at({2026, 3, 1}, 8, 0), 0,
                         {setOf(A, 0, {{1, "8"}, {2, "100"}}), setOf(B, 0, {{3, "00:12:00"}})})}),
        dayOf({2026, 3, 9}, {workoutOf(20, at({2026, 3, 9}, 8, 0), 0, {setOf(A, 0, {{1, "12"}})})}),
        // Later in the list but earlier in time.
        dayOf({2026, 3, 3}, {workoutOf(21, at({2026, 3, 3}, 8, 0), 0, {setOf(A, 0, {{1, "10"}})})}),
    };
    model::WorkoutEntry current =
        workoutOf(20, at({2026, 3, 5}, 8, 0), 0,
                  {setOf(A, 0, {{1, "11"}}), setOf(A, 1, {}), setOf(B, 0, {})});

    struct Expected
    {
        const char* name;
        CellKind kind;
        const char* value;
        const char* last;
    };
    struct Case
    {
        std::size_t set;
        std::vector<Expected> rows;
    };
    const Case cases[] = {
        // The latest earlier workout with Press set 1 is 3 March: its Weight is missing, so that
        // cell is empty and grey rather than taken from 1 March.
        {0, {{"Reps", CellKind::Number, "11", "10"}, {"Weight", CellKind::Number, "", ""}}},
        {1, {{"Reps", CellKind::Number, "", ""}, {"Weight", CellKind::Number, "", ""}}},
        // The field that no longer exists has no row; an empty time cell reads 00:00:00.
        {2, {{"Reps", CellKind::Number, "", ""}, {"Time", CellKind::Time, "00:00:00", "00:12:00"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.set);
        const std::vector<GridRow> grid = valueGrid(shared, journal, current, c.set);
        ASSERT_EQ(grid.size(), c.rows.size());
        for (std::size_t i = 0; i < grid.size(); ++i) {
            EXPECT_EQ(grid[i].name, c.rows[i].name);
            EXPECT_EQ(grid[i].kind, c.rows[i].kind);
            EXPECT_EQ(grid[i].value, c.rows[i].value);
            EXPECT_EQ(grid[i].last, c.rows[i].last);
            const Rgb expected = grid[i].last.empty() ? Rgb{200, 200, 200} : Rgb{192, 255, 192};
            EXPECT_EQ(grid[i].lastColour, expected);
        }
    }

    // Editing the 3 March workout itself: its own record is not its last time.
    const model::WorkoutEntry& stored = journal.days[2].workouts[0];
    EXPECT_EQ(valueGrid(shared, journal, stored, 0, &stored)[0].last, "8");

    // Storing the grid writes one value per row, in row order.
    std::vector<GridRow> grid = valueGrid(shared, journal, current, 2);
    grid[0].value = "15";
    storeGrid(current.exercises[2], grid);
    ASSERT_EQ(current.exercises[2].values.size(), 2u);
    EXPECT_EQ(current.exercises[2].values[0].field, 1);
    EXPECT_EQ(current.exercises[2].values[0].value, "15");
    EXPECT_EQ(current.exercises[2].values[1].value, "00:00:00");
}

TEST(WorkoutSets, PreviousNotesOfTheRoutine)
{
    model::UserJournal journal;
    journal.days = {
        dayOf({2026, 3, 9}, {workoutOf(20, at({2026, 3, 9}, 8, 0), 0, {}, "latest push")}),
        dayOf({2026, 3, 2}, {workoutOf(20, at({2026, 3, 2}, 8, 0), 0, {}, "older push"),
                             workoutOf(21, at({2026, 3, 2}, 9, 0), 0, {}, "pull")}),
    };
    EXPECT_EQ(previousNotes(journal, 20), "latest push");
    EXPECT_EQ(previousNotes(journal, 20, &journal.days[0].workouts[0]), "older push");
    EXPECT_EQ(previousNotes(journal, 21), "pull");
    EXPECT_EQ(previousNotes(journal, 22), "");
}
