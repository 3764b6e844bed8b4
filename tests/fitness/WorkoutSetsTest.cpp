// The "Do Routine" dialog: a new workout, the set list with its numbering, the value grid with the
// values of last time, and the previous notes.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "WorkoutFixtures.h"
#include "fitness/logic/WorkoutSets.h"
#include "model/FitnessJournalEdits.h"

using namespace velmora;
using namespace velmora::fitness;
using test::at;
using test::dayOf;
using test::setOf;
using test::workoutOf;

namespace {

constexpr std::int32_t A = 10;
constexpr std::int32_t B = 11;

// Sets of exercises A and B as letters ("ABAA"), numbered.
std::vector<model::ExerciseRecord> setsOf(const std::string& letters)
{
    std::vector<model::ExerciseRecord> sets;
    for (char letter : letters)
        sets.push_back(setOf(letter == 'A' ? A : B, 0, {}));
    model::renumberSets(sets);
    return sets;
}

// The set list as the dialog shows it: "A1 B1 A2".
std::string shown(const std::vector<model::ExerciseRecord>& sets)
{
    std::string text;
    for (const model::ExerciseRecord& set : sets)
        text += std::string(text.empty() ? "" : " ") + (set.exercise == A ? "A" : "B") +
                std::to_string(set.setNumber + 1);
    return text;
}

} // namespace

TEST(WorkoutSets, NumberingAfterEachEdit)
{
    struct Case
    {
        const char* name;
        const char* before;
        char edit; // '-' remove, '^' up, 'v' down the set at index; '+' append an A; ' ' none
        std::size_t index;
        const char* after;
        std::optional<std::size_t> selected;
    };
    const Case cases[] = {
        {"A, B, A, A", "ABAA", ' ', 0, "A1 B1 A2 A3", {}},
        {"removing the second A", "ABAA", '-', 2, "A1 B1 A2", {}},
        {"moving B up", "ABAA", '^', 1, "B1 A1 A2 A3", 0},
        {"moving the first A down", "ABAA", 'v', 0, "B1 A1 A2 A3", 1},
        {"moving the last A up past B", "AABA", '^', 3, "A1 A2 A3 B1", 2},
        {"the first cannot move up", "AB", '^', 0, "A1 B1", std::nullopt},
        {"the last cannot move down", "AB", 'v', 1, "A1 B1", std::nullopt},
        {"adding an A", "AB", '+', 0, "A1 B1 A2", {}},
    };
    const model::SharedData shared = test::workoutDefinitions();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<model::ExerciseRecord> sets = setsOf(c.before);
        std::optional<std::size_t> selected;
        if (c.edit == '-')
            EXPECT_TRUE(removeSet(sets, c.index));
        else if (c.edit == '^' || c.edit == 'v')
            selected = moveSet(sets, c.index, c.edit == '^' ? -1 : +1);
        else if (c.edit == '+')
            appendSet(sets, newSet(shared, A));
        EXPECT_EQ(shown(sets), c.after);
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
    ASSERT_EQ(shown(w.exercises), "B1 A1 B2");
    EXPECT_EQ(w.exercises[1].values.size(), 2u); // one empty value per field of Press
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

    // Storing the grid writes one value per row, in row order: the grid reads back as stored.
    std::vector<GridRow> grid = valueGrid(shared, journal, current, 2);
    grid[0].value = "15";
    storeGrid(current.exercises[2], grid);
    ASSERT_EQ(current.exercises[2].values.size(), 2u);
    EXPECT_EQ(valueGrid(shared, journal, current, 2)[0].value, "15");
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
