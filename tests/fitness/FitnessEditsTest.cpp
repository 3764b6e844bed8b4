// The edits of the health and fitness pages: what each does to the journal and the definitions.

#include <gtest/gtest.h>

#include "WorkoutFixtures.h"
#include "fitness/logic/FitnessEdits.h"
#include "model/Store.h"

using namespace velmora;
using namespace velmora::fitness;
using test::at;
using test::dayOf;
using test::setOf;
using test::workoutOf;

namespace {

const model::CalendarDate May1{2026, 5, 1};
const model::CalendarDate May2{2026, 5, 2};

model::HealthEntry weighing(float weight)
{
    model::HealthEntry entry;
    entry.weight = weight;
    return entry;
}

} // namespace

TEST(FitnessEdits, StoringAHealthEntry)
{
    struct Case
    {
        const char* name;
        bool dayExists;
        model::HealthEntry stored;
        bool changed;
        std::size_t days;
    };
    const model::HealthEntry sameAsHeld = weighing(150.0f);
    const Case cases[] = {
        {"empty entry, no day: nothing made", false, {}, false, 0},
        {"value, no day: a day is appended", false, weighing(150.0f), true, 1},
        {"the entry the day holds: nothing changes", true, sameAsHeld, false, 1},
        {"another value into the day", true, weighing(151.5f), true, 1},
        {"an empty entry clears the day's", true, {}, true, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        model::UserJournal journal;
        if (c.dayExists) {
            journal.days.push_back(dayOf(May1, {}));
            journal.days.back().health = sameAsHeld;
        }
        EXPECT_EQ(storeHealthEntry(journal, May1, c.stored), c.changed);
        ASSERT_EQ(journal.days.size(), c.days);
        if (c.days == 1) {
            EXPECT_EQ(model::CalendarDate::fromTime(journal.days[0].date), May1);
            EXPECT_EQ(journal.days[0].health.weight, c.stored.weight);
        }
    }
}

TEST(FitnessEdits, ClearingAHealthEntryKeepsTheDayWithAnEmptyEntry)
{
    model::UserJournal journal;
    journal.days.push_back(dayOf(May1, {workoutOf(20, at(May1, 9, 0), 0, {})}));
    journal.days[0].health = weighing(150.0f);
    journal.days[0].health.mood = 4;
    EXPECT_FALSE(clearHealthEntry(journal, May2));
    ASSERT_TRUE(clearHealthEntry(journal, May1));
    EXPECT_TRUE(journal.days[0].health.isEmpty());
    EXPECT_EQ(journal.days[0].health.mood, 2);
    EXPECT_EQ(journal.days[0].workouts.size(), 1u);
}

TEST(FitnessEdits, StoringANote)
{
    model::UserJournal journal;
    // An empty note on a date with no day makes no day.
    EXPECT_FALSE(storeNote(journal, May1, 2, ""));
    EXPECT_TRUE(journal.days.empty());
    // A "Fitness" note makes the day, which then has no "Diet" note.
    EXPECT_TRUE(storeNote(journal, May1, 3, "Ran 5 km"));
    ASSERT_EQ(journal.days.size(), 1u);
    EXPECT_EQ(journal.days[0].notes[3], "Ran 5 km");
    EXPECT_TRUE(journal.days[0].notes[2].empty());
    // Storing the same text again changes nothing; an empty text clears the note.
    EXPECT_FALSE(storeNote(journal, May1, 3, "Ran 5 km"));
    EXPECT_TRUE(storeNote(journal, May1, 3, ""));
    EXPECT_TRUE(journal.days[0].notes[3].empty());
    EXPECT_FALSE(storeNote(journal, May1, 4, "out of range"));
}

TEST(FitnessEdits, CommittingAWorkoutRenumbersAndFilesItUnderItsDate)
{
    model::UserJournal journal;
    journal.days.push_back(dayOf(May1, {workoutOf(21, at(May1, 8, 0), 50, {})}));

    // A new workout of May 2: sets A, B, A, A numbered 0, 0, 1, 2 in a new day.
    auto workout =
        workoutOf(20, at(May2, 18, 30), 360,
                  {setOf(10, 7, {}), setOf(11, 7, {}), setOf(10, 7, {}), setOf(10, 7, {})});
    const WorkoutPlace added = commitWorkout(journal, workout, std::nullopt);
    ASSERT_EQ(journal.days.size(), 2u);
    EXPECT_EQ(added.day, 1u);
    EXPECT_EQ(added.workout, 0u);
    const auto& sets = journal.days[1].workouts[0].exercises;
    ASSERT_EQ(sets.size(), 4u);
    EXPECT_EQ(sets[0].setNumber, 0);
    EXPECT_EQ(sets[1].setNumber, 0);
    EXPECT_EQ(sets[2].setNumber, 1);
    EXPECT_EQ(sets[3].setNumber, 2);

    // Edited with its date changed to May 1, it leaves May 2 and follows May 1's workout.
    auto edited = journal.days[1].workouts[0];
    edited.time = at(May1, 19, 0);
    const WorkoutPlace moved = commitWorkout(journal, edited, added);
    EXPECT_EQ(moved.day, 0u);
    EXPECT_EQ(moved.workout, 1u);
    EXPECT_TRUE(journal.days[1].workouts.empty());
    ASSERT_EQ(journal.days[0].workouts.size(), 2u);
    EXPECT_EQ(journal.days[0].workouts[1].calories, 360);

    EXPECT_TRUE(deleteWorkout(journal, {0, 0}));
    EXPECT_FALSE(deleteWorkout(journal, {0, 1}));
    ASSERT_EQ(journal.days[0].workouts.size(), 1u);
    EXPECT_EQ(journal.days[0].workouts[0].routine, 20);
}

TEST(FitnessEdits, FitnessColumnsEndAtTheFirstEmptySlot)
{
    model::User user;
    user.fitnessColumnWidths = {150, 60, 70, 80, 90, 0, 0, 0, 0, 0, 0};
    setFitnessColumns(user, {3, 1, -1, 2, -1, -1, -1, -1, -1, -1});
    EXPECT_EQ(user.fitnessColumns,
              (std::array<std::int32_t, 10>{3, 1, -1, -1, -1, -1, -1, -1, -1, -1}));
    // The emptied slots lose their widths; the date column and the kept slots keep theirs.
    EXPECT_EQ(user.fitnessColumnWidths,
              (std::array<std::int32_t, 11>{150, 60, 70, 0, 0, 0, 0, 0, 0, 0, 0}));
    setFitnessColumnWidth(user, 0, 210);
    setFitnessColumnWidth(user, 11, 99); // no such column
    EXPECT_EQ(user.fitnessColumnWidths[0], 210);
}

TEST(FitnessEdits, StoringDefinitionsByName)
{
    model::SharedData shared = test::workoutDefinitions();
    const std::int32_t nextExercise = shared.counters.values[model::IdCounters::Exercise];

    // Nothing is made of a new exercise without a checked field, nor of a blank name.
    EXPECT_FALSE(storeExercise(shared, "bench curl", {{1, false}, {2, false}}));
    EXPECT_FALSE(storeExercise(shared, "   ", {{1, true}}));
    EXPECT_EQ(shared.exercises.size(), 2u);
    // Typed in lower case, stored with a capital; typed again, the same exercise is updated.
    const auto made = storeExercise(shared, "bench curl", {{1, true}, {2, false}});
    ASSERT_TRUE(made);
    EXPECT_EQ(*made, nextExercise);
    EXPECT_EQ(shared.exercises.back().name, "Bench curl");
    EXPECT_EQ(storeExercise(shared, "Bench curl", {{1, true}, {2, true}}), made);
    EXPECT_EQ(shared.exercises.size(), 3u);
    EXPECT_EQ(shared.exercises.back().fields, (std::vector<std::int32_t>{1, 2}));

    // Fields: a known name changes its type, a new one takes the next field identifier.
    EXPECT_EQ(storeField(shared, "Reps", 1), 1);
    EXPECT_EQ(shared.fields[0].kind, 1);
    const std::int32_t nextField = shared.counters.values[model::IdCounters::ExerciseField];
    EXPECT_EQ(storeField(shared, "distance", 0), nextField);
    EXPECT_EQ(shared.fields.back().name, "Distance");

    // Routines and variables likewise.
    EXPECT_EQ(storeRoutine(shared, "Push", {11, 10}, 300), 20);
    EXPECT_EQ(shared.routines[0].exercises, (std::vector<std::int32_t>{11, 10}));
    EXPECT_EQ(shared.routines[0].calories, 300);
    VariableForm form;
    form.number = 500.0f;
    form.ask = {false, true, true};
    const auto vitamin = storeVariable(shared, "vitamin c", form);
    ASSERT_TRUE(vitamin);
    form.number = 1000.0f;
    EXPECT_EQ(storeVariable(shared, "Vitamin c", form), vitamin);
    ASSERT_EQ(shared.variables.size(), 1u);
    EXPECT_EQ(shared.variables[0].name, "Vitamin c");
    EXPECT_EQ(shared.variables[0].number, 1000.0f);
    EXPECT_EQ(shared.variables[0].askNumber, 0);
}

TEST(FitnessEdits, DeletingDefinitionsDropsTheirReferences)
{
    model::Store store;
    store.shared = test::workoutDefinitions();
    store.shared.variables = {{5, "Iron", 1.0f, "", 0, 0, 0, 0}, {6, "Zinc", 2.0f, "", 0, 0, 0, 0}};
    store.journal.days.push_back(dayOf(
        May1,
        {workoutOf(20, at(May1, 9, 0), 0, {setOf(10, 0, {{1, "8"}, {2, "100"}}), setOf(11, 0, {})}),
         workoutOf(21, at(May1, 18, 0), 0, {setOf(11, 0, {})})}));
    store.journal.days[0].health.variables = {{5, 1.0f, "", 0}, {6, 2.0f, "", 0}, {5, 3.0f, "", 0}};

    EXPECT_FALSE(deleteVariable(store, 99));
    ASSERT_TRUE(deleteVariable(store, 5));
    ASSERT_EQ(store.journal.days[0].health.variables.size(), 1u);
    EXPECT_EQ(store.journal.days[0].health.variables[0].variable, 6);

    ASSERT_TRUE(deleteField(store, "Weight"));
    EXPECT_FALSE(deleteField(store, "weight")); // names match exactly
    EXPECT_EQ(store.shared.exercises[0].fields, (std::vector<std::int32_t>{1}));
    ASSERT_EQ(store.journal.days[0].workouts[0].exercises[0].values.size(), 1u);

    ASSERT_TRUE(deleteExercise(store, 11));
    // The clean-up sorts the routines by name: Pull, then Push.
    ASSERT_EQ(store.shared.routines[1].id, 20);
    EXPECT_EQ(store.shared.routines[1].exercises, (std::vector<std::int32_t>{10}));
    EXPECT_TRUE(store.shared.routines[0].exercises.empty());
    EXPECT_EQ(store.journal.days[0].workouts[0].exercises.size(), 1u);

    ASSERT_TRUE(deleteRoutine(store, 20));
    ASSERT_EQ(store.journal.days[0].workouts.size(), 1u);
    EXPECT_EQ(store.journal.days[0].workouts[0].routine, 21);
}
