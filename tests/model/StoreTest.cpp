#include <gtest/gtest.h>

#include "model/Defaults.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "support/DataFolderFixture.h"
#include "support/Fixtures.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;

TEST(Normalise, DropsDanglingIdentifiersInOrder)
{
    Store s;
    s.shared.fields = {{1, "Reps", 0}, {3, "Time", 2}};
    s.shared.exercises = {{10, "Squat", {1, 2, 3}}, {11, "Row", {2}}};
    s.shared.routines = {{20, 0, "Legs", {12, 10, 11, 13}}, {21, 0, "Gone", {}}};
    JournalDay day;
    WorkoutEntry w;
    w.routine = 20;
    w.exercises.push_back(ExerciseRecord{10, 0, 0, {{1, "10"}, {2, "x"}, {3, "0:30"}}});
    w.exercises.push_back(ExerciseRecord{12, 0, 0, {}});
    day.workouts.push_back(w);
    w.routine = 99; // no such routine
    day.workouts.push_back(w);
    s.journal.days.push_back(day);

    s.normalise();

    // (After sorting: Row, Squat.)
    EXPECT_TRUE(s.shared.exercises[0].fields.empty());
    EXPECT_EQ(s.shared.exercises[1].fields, (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(s.shared.routines[1].exercises, (std::vector<std::int32_t>{10, 11}));
    ASSERT_EQ(s.journal.days[0].workouts.size(), 1u);
    const WorkoutEntry& kept = s.journal.days[0].workouts[0];
    ASSERT_EQ(kept.exercises.size(), 1u);
    ASSERT_EQ(kept.exercises[0].values.size(), 2u);
    EXPECT_EQ(kept.exercises[0].values[1].field, 3);
    // Sorted by name: "Gone" before "Legs", "Reps" before "Time", "Row" before "Squat".
    EXPECT_EQ(s.shared.routines[0].name, "Gone");
    EXPECT_EQ(s.shared.exercises[0].name, "Row");
}

TEST(Normalise, CustomFoodsDeduplicatedToTheFirstAndSortedByteWise)
{
    Store s;
    const auto cat = standardCatalogue();
    s.shared.customFoods = {FoodBuilder(cat, 70001, "apple pie").serving(1),
                            FoodBuilder(cat, 70002, "Banana bread").serving(2),
                            FoodBuilder(cat, 70001, "Apple (copy)").serving(3),
                            FoodBuilder(cat, 70003,
                                        "\xC9"
                                        "clair")
                                .serving(4)};
    s.shared.variables = {{1, "zinc", 0.0f, {}}, {2, "Zinc", 0.0f, {}}, {3, "B12", 0.0f, {}}};
    s.normalise();
    ASSERT_EQ(s.shared.customFoods.size(), 3u);
    EXPECT_EQ(s.shared.customFoods[0].name, "Banana bread"); // capital B before small a
    EXPECT_EQ(s.shared.customFoods[1].name, "apple pie");    // the first of the duplicates stays
    EXPECT_EQ(s.shared.customFoods[2].name, "\xC9"
                                            "clair"); // bytes above 0x7F compare unsigned
    EXPECT_EQ(s.shared.variables[0].name, "B12");
    EXPECT_EQ(s.shared.variables[1].name, "Zinc");
    EXPECT_EQ(s.shared.variables[2].name, "zinc");
    ASSERT_NE(s.findFood(70001), nullptr);
    EXPECT_EQ(s.findFood(70001)->servingWeight, 1.0f);
}

TEST(ExampleUser, DefaultDefinitionsAndCounters)
{
    SharedData d;
    createExampleUser(d);
    EXPECT_EQ(d.userNames, (std::vector<std::string>{"Example User"}));
    ASSERT_EQ(d.fields.size(), 9u);
    ASSERT_EQ(d.exercises.size(), 32u);
    EXPECT_EQ(d.fields[7].name, "Max. HR");
    EXPECT_EQ(d.fields[4].kind, 2);
    EXPECT_EQ(d.exercises[5].name, "Incline Crunch's");
    EXPECT_EQ(d.exercises[28].name, "Elliptacle");
    // Strength exercises take the first four fields, endurance ones the last seven; identifiers
    // come from the counters, post-increment from their starting values.
    EXPECT_EQ(d.exercises[19].fields, (std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(d.exercises[31].fields, (std::vector<std::int32_t>{3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(d.exercises[31].id, 32);
    EXPECT_EQ(d.counters.values[IdCounters::ExerciseField], 10);
    EXPECT_EQ(d.counters.values[IdCounters::Exercise], 33);
    EXPECT_EQ(d.counters.values[IdCounters::CustomFood], 70000);

    User u;
    applyExampleProfile(u, d);
    EXPECT_EQ(u.fitnessColumns[0], 1);
    EXPECT_EQ(u.fitnessColumns[1], 2);
    EXPECT_EQ(u.fitnessColumns[2], 5);
    EXPECT_EQ(u.fitnessColumns[3], -1);
}

TEST(StoreLoad, MissingFoodsDbLoadsNothing)
{
    TempDir dir;
    writeBytes(dir / "velmora.db", handMadeShared());
    Store s = storeIn(dir);
    const auto report = s.load();
    EXPECT_FALSE(report.foodsLoaded);
    EXPECT_FALSE(report.sharedLoaded);
    EXPECT_FALSE(report.exampleCreated);
    EXPECT_TRUE(report.errors.empty());
    EXPECT_TRUE(s.shared.userNames.empty());
}

TEST(StoreLoad, MissingVelmoraDbCreatesTheExampleUserAndSavesIt)
{
    TempDir dir;
    writeBytes(dir / "foods.db", handMadeFoods());
    Store s = storeIn(dir);
    const auto report = s.load();
    EXPECT_TRUE(report.foodsLoaded);
    EXPECT_TRUE(report.exampleCreated);
    EXPECT_FALSE(report.userFileRead);
    EXPECT_EQ(s.currentUserName(), "Example User");
    EXPECT_TRUE(s.foods.catalogue().hasComputed());
    // The new profile's goal list: the fixed eight, then the intake table's nutrients not yet
    // listed.
    EXPECT_EQ(s.journal.user.goalNutrients,
              (std::vector<NutrientId>{208, 203, 205, 204, 291, 100, 101, 102}));

    ASSERT_TRUE(s.saveShared().ok());
    ASSERT_TRUE(s.saveCurrentUser().ok());
    EXPECT_FALSE(s.shared.exercises.empty()); // a save frees nothing
    EXPECT_TRUE(std::filesystem::exists(dir / "Example User.db"));

    Store again = storeIn(dir);
    const auto second = again.load();
    EXPECT_TRUE(second.sharedLoaded);
    EXPECT_TRUE(second.userFileRead);
    EXPECT_EQ(again.shared.fields.size(), 9u);
    EXPECT_EQ(again.shared.fields[0].name, "Ave. HR"); // sorted by the normalisation
}

TEST(StoreLoad, ReadsTheCurrentUsersFileAndKeepsTheProfileWhenItIsMissing)
{
    TempDir dir;
    writeHandMadeFolder(dir);
    Store s = storeIn(dir);
    const auto report = s.load();
    EXPECT_TRUE(report.sharedLoaded);
    EXPECT_TRUE(report.userFileRead);
    EXPECT_EQ(s.currentUserName(), "Bert");
    ASSERT_EQ(s.journal.days.size(), 2u);
    EXPECT_EQ(s.journal.user.height, 170);

    // Values through the store: 1001 x 1.5 of 12.6 g protein, the custom food adds its 1.0.
    const JournalDay& day = s.journal.days[0];
    EXPECT_NEAR(s.value(day, 203), 12.6 * 1.5 + 1.0, 1e-5);
    EXPECT_EQ(s.servingText(day.meals[0].entries[0]), "3 x large");
    EXPECT_EQ(s.servingText(FoodEntry{4242, 1.0f}), "");
    EXPECT_EQ(s.value(FoodEntry{4242, 1.0f}, 203), 0.0);

    // Switching to a user without a file: empty journal, previous profile kept.
    s.shared.currentUser = 0;
    EXPECT_FALSE(s.loadCurrentUser());
    EXPECT_TRUE(s.journal.days.empty());
    EXPECT_EQ(s.journal.user.height, 170);
    EXPECT_EQ(s.currentUserName(), "Anna");
}

TEST(SafeFile, FailedWriteKeepsTheOldFile)
{
    TempDir dir;
    const auto target = dir / "velmora.db";
    writeBytes(target, {1, 2, 3});
    ASSERT_TRUE(writeFileAtomically(target, std::vector<std::uint8_t>{4, 5}).ok());
    EXPECT_EQ(readBytes(target), (std::vector<std::uint8_t>{4, 5}));
    // A target inside a missing folder cannot be written; nothing is left behind.
    const Status st = writeFileAtomically(dir / "missing" / "x.db", std::vector<std::uint8_t>{1});
    EXPECT_FALSE(st.ok());
    EXPECT_EQ(st.error().code, FileErrorCode::CannotWrite);
    // Renaming over a folder fails: the folder stays and no temporary file remains.
    std::filesystem::create_directory(dir / "folder.db");
    std::filesystem::create_directory(dir / "folder.db" / "inner");
    EXPECT_FALSE(writeFileAtomically(dir / "folder.db", std::vector<std::uint8_t>{1}).ok());
    int files = 0;
    for (const auto& e : std::filesystem::directory_iterator(dir.path()))
        files += e.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 1);
    EXPECT_EQ(readWholeFile(dir / "nothing.db").error().code, FileErrorCode::NotFound);
}

TEST(StoreSave, SavingWritesANormalisedCopyAndLeavesTheLiveListsAsTheyAre)
{
    TempDir dir;
    writeHandMadeFolder(dir);
    Store s = storeIn(dir);
    ASSERT_TRUE(s.load().userFileRead);
    // A dialog holds positions in the lists: new records at the end, out of name order, and a
    // workout of a routine that is gone.
    const auto cat = standardCatalogue();
    s.shared.customFoods.push_back(FoodBuilder(cat, 70010, "Apple").serving(1));
    s.shared.variables.push_back({90, "Aardvark", 0.0f, {}});
    WorkoutEntry stale;
    stale.routine = 4242;
    s.journal.days[0].workouts.push_back(stale);
    const SharedData before = s.shared;
    const std::vector<JournalDay> daysBefore = s.journal.days;

    EXPECT_TRUE(s.hasUnsavedChanges());
    ASSERT_TRUE(s.saveShared().ok());
    ASSERT_TRUE(s.saveCurrentUser().ok());
    EXPECT_FALSE(s.hasUnsavedChanges());
    EXPECT_EQ(s.shared.customFoods.back().name, "Apple");
    EXPECT_EQ(s.shared.variables.back().name, "Aardvark");
    EXPECT_EQ(s.shared.serialize(), before.serialize());
    EXPECT_EQ(s.journal.days.size(), daysBefore.size());
    EXPECT_EQ(s.journal.days[0].workouts.size(), daysBefore[0].workouts.size());

    // The files hold what the program's own normalisation makes of the records, as the save at
    // shut-down writes them.
    s.normalise();
    EXPECT_EQ(readBytes(dir / "velmora.db"), s.shared.serialize());
    EXPECT_EQ(readBytes(dir / "Bert.db"), s.journal.serialize());
    EXPECT_EQ(s.shared.variables.front().name, "Aardvark");
}
