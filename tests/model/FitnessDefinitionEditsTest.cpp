// The edits of fields, exercises, routines and variables: names as stored, updates by exact name,
// the next number of each counter, and the references a delete drops.

#include <gtest/gtest.h>

#include "fitness/WorkoutFixtures.h"
#include "model/FitnessDefinitionEdits.h"
#include "model/Store.h"

using namespace velmora;
using namespace velmora::model;
using test::at;
using test::dayOf;
using test::setOf;
using test::workoutOf;

TEST(FitnessDefinitionEdits, ExerciseFieldsAfterStore)
{
    Exercise existing;
    existing.fields = {2, 0, 5};
    struct Case
    {
        const char* name;
        const Exercise* exercise;
        std::vector<FieldRow> rows;
        std::optional<std::vector<std::int32_t>> fields;
    };
    const Case cases[] = {
        {"new, nothing checked: not made", nullptr, {{0, false}, {1, false}}, std::nullopt},
        {"new: checked rows in row order", nullptr, {{3, true}, {1, false}, {0, true}}, {{3, 0}}},
        {"existing keeps its order, drops unchecked, appends new",
         &existing,
         {{0, false}, {1, true}, {2, true}, {5, true}},
         {{2, 5, 1}}},
        {"existing with nothing checked is emptied",
         &existing,
         {{0, false}, {2, false}, {5, false}},
         {std::vector<std::int32_t>{}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(exerciseFieldsAfterStore(c.exercise, c.rows), c.fields);
    }
}

TEST(FitnessDefinitionEdits, StoringDefinitionsByName)
{
    SharedData shared = test::workoutDefinitions();
    const std::int32_t nextExercise = shared.counters.values[IdCounters::Exercise];

    // Nothing is made of a new exercise without a checked field, nor of a blank name.
    EXPECT_FALSE(storeExercise(shared, "bench curl", {{1, false}, {2, false}}));
    EXPECT_FALSE(storeExercise(shared, "   ", {{1, true}}));
    EXPECT_EQ(shared.exercises.size(), 2u);
    // Typed in lower case, stored with a capital; typed again, the same exercise is updated.
    const auto made = storeExercise(shared, " bench curl ", {{1, true}, {2, false}});
    ASSERT_TRUE(made);
    EXPECT_EQ(*made, nextExercise);
    EXPECT_EQ(shared.exercises.back().name, "Bench curl");
    EXPECT_EQ(storeExercise(shared, "Bench curl", {{1, true}, {2, true}}), made);
    EXPECT_EQ(shared.exercises.size(), 3u);
    EXPECT_EQ(shared.exercises.back().fields, (std::vector<std::int32_t>{1, 2}));

    // Fields: a known name changes its type, a new one takes the next field identifier.
    EXPECT_EQ(storeField(shared, "Reps", 1), 1);
    EXPECT_EQ(shared.fields[0].kind, 1);
    const std::int32_t nextField = shared.counters.values[IdCounters::ExerciseField];
    EXPECT_EQ(storeField(shared, "distance", 0), nextField);
    EXPECT_EQ(shared.fields.back().name, "Distance");
    EXPECT_FALSE(storeField(shared, " ", 0));

    // Routines: an existing one takes the new exercises and calories, a new one the next number.
    EXPECT_EQ(storeRoutine(shared, "Push", {11, 10}, 300), 20);
    EXPECT_EQ(shared.routines[0].exercises, (std::vector<std::int32_t>{11, 10}));
    EXPECT_EQ(shared.routines[0].calories, 300);
    const std::int32_t nextRoutine = shared.counters.values[IdCounters::Routine];
    EXPECT_EQ(storeRoutine(shared, "legs", {10}, 0), nextRoutine);
    EXPECT_EQ(shared.routines.back().name, "Legs");

    // Variables: the form's flags and locked values; the name matches exactly ("Vitamin C" would
    // be another variable).
    VariableForm form;
    form.number = 500.0f;
    form.text = "tablet";
    form.ask = {false, true, false};
    const auto vitamin = storeVariable(shared, "vitamin c", form);
    ASSERT_TRUE(vitamin);
    EXPECT_EQ(*vitamin, shared.counters.values[IdCounters::UserVariable] - 1);
    form.number = 1000.0f;
    EXPECT_EQ(storeVariable(shared, "Vitamin c", form), vitamin);
    ASSERT_EQ(shared.variables.size(), 1u);
    const UserVariable& v = shared.variables[0];
    EXPECT_EQ(v.name, "Vitamin c");
    EXPECT_EQ(v.number, 1000.0f);
    EXPECT_EQ(v.text, "tablet");
    EXPECT_EQ((std::array<int, 3>{v.askNumber, v.askText, v.askTime}),
              (std::array<int, 3>{0, 1, 0}));
}

TEST(FitnessDefinitionEdits, DeletingDefinitionsDropsTheirReferences)
{
    const CalendarDate may1{2026, 5, 1};
    Store store;
    store.shared = test::workoutDefinitions();
    store.shared.variables = {{5, "Iron", 1.0f, "", 0, 0, 0, 0}, {6, "Zinc", 2.0f, "", 0, 0, 0, 0}};
    store.journal.days.push_back(dayOf(
        may1,
        {workoutOf(20, at(may1, 9, 0), 0, {setOf(10, 0, {{1, "8"}, {2, "100"}}), setOf(11, 0, {})}),
         workoutOf(21, at(may1, 18, 0), 0, {setOf(11, 0, {})})}));
    store.journal.days[0].health.variables = {{5, 1.0f, "", 0}, {6, 2.0f, "", 0}, {5, 3.0f, "", 0}};

    EXPECT_FALSE(deleteVariable(store, 99));
    ASSERT_TRUE(deleteVariable(store, 5));
    ASSERT_EQ(store.journal.days[0].health.variables.size(), 1u);
    EXPECT_EQ(store.journal.days[0].health.variables[0].variable, 6);

    ASSERT_TRUE(deleteField(store, "Weight"));
    EXPECT_FALSE(deleteField(store, "weight")); // names match exactly
    EXPECT_EQ(store.shared.exercises[0].fields, (std::vector<std::int32_t>{1}));
    ASSERT_EQ(store.journal.days[0].workouts[0].exercises[0].values.size(), 1u);

    EXPECT_FALSE(deleteExercise(store, 99));
    ASSERT_TRUE(deleteExercise(store, 11));
    // The clean-up sorts the routines by name: Pull, then Push.
    ASSERT_EQ(store.shared.routines[1].id, 20);
    EXPECT_EQ(store.shared.routines[1].exercises, (std::vector<std::int32_t>{10}));
    EXPECT_TRUE(store.shared.routines[0].exercises.empty());
    EXPECT_EQ(store.journal.days[0].workouts[0].exercises.size(), 1u);

    EXPECT_FALSE(deleteRoutine(store, 99));
    ASSERT_TRUE(deleteRoutine(store, 20));
    ASSERT_EQ(store.journal.days[0].workouts.size(), 1u);
    EXPECT_EQ(store.journal.days[0].workouts[0].routine, 21);
}
