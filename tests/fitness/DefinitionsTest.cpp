// Names of new definitions, the field list that "Define Exercises" stores, and what deleting a
// field leaves of the exercises.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "fitness/logic/Definitions.h"
#include "model/Defaults.h"
#include "model/Store.h"

using namespace velmora;
using namespace velmora::fitness;

TEST(Definitions, NamesAsStored)
{
    EXPECT_EQ(definitionName("bench curl"), "Bench curl");
    EXPECT_EQ(definitionName("  vitamin c "), "Vitamin c");
    EXPECT_EQ(definitionName("\xE9lan"), "\xC9lan"); // Windows-1252 letters too
    EXPECT_EQ(definitionName("   "), std::nullopt);

    std::vector<model::UserVariable> list(2);
    list[0].name = "Aspirin";
    list[1].name = "Vitamin c";
    EXPECT_EQ(definitionNamed(list, *definitionName("vitamin c")), 1u); // updated, not added
    EXPECT_EQ(definitionNamed(list, "Vitamin C"), std::nullopt);        // case-sensitive
}

TEST(Definitions, ExerciseFieldsAfterStore)
{
    model::Exercise existing;
    existing.fields = {2, 0, 5};
    struct Case
    {
        const char* name;
        const model::Exercise* exercise;
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

// Deleting a definition leaves the dropping of its references to the store's clean-up.
TEST(Definitions, DeletingRepsDropsItFromEveryStrengthExercise)
{
    model::Store store;
    model::createExampleUser(store.shared);
    auto& fields = store.shared.fields;
    const auto reps = std::find_if(fields.begin(), fields.end(),
                                   [](const model::ExerciseField& f) { return f.name == "Reps"; });
    ASSERT_NE(reps, fields.end());
    const std::int32_t repsId = reps->id;
    fields.erase(reps);
    store.normalise();

    int strength = 0;
    for (const model::Exercise& e : store.shared.exercises) {
        EXPECT_EQ(std::count(e.fields.begin(), e.fields.end(), repsId), 0) << e.name;
        if (e.fields.size() == 3) // Weight, Pace, Comment are left
            ++strength;
    }
    EXPECT_EQ(strength, 20);
}
