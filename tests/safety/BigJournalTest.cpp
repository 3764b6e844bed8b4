// A thirty-year journal loads, normalises and saves without losing anything.

#include <gtest/gtest.h>

#include "model/Store.h"
#include "support/Builders.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;

TEST(BigJournal, ThirtyYearsLoadNormaliseAndSaveUnchanged)
{
    TempDir dir;
    writeBytes(dir / "foods.db", generatedFoods(2000).serialize());
    JournalShape shape;
    shape.days = 10950;
    shape.mealsPerDay = 5;
    shape.foodsPerMeal = 8;
    shape.workoutsPerDay = 1;
    shape.healthPerDay = 1;

    std::vector<std::uint8_t> written;
    double energyTotal = 0.0;
    {
        Store s;
        s.setPaths(dir / "foods.db", dir.path());
        s.load();
        // Routines for the generated workouts, so that the normalisation keeps them.
        for (std::int32_t id = 0; id < 8; ++id)
            s.shared.routines.push_back(Routine{id, 100, "Routine " + std::to_string(id), {}});
        s.journal.days = generatedJournal(s.foods, shape, 3);
        for (const JournalDay& d : s.journal.days)
            energyTotal += s.value(d, 208);
        ASSERT_TRUE(s.saveShared().ok());
        ASSERT_TRUE(s.saveCurrentUser().ok());
        written = readBytes(dir / "Example User.db");
    }
    EXPECT_GT(written.size(), 5'000'000u); // 350,400 food entries and 10,950 workouts

    Store again;
    again.setPaths(dir / "foods.db", dir.path());
    const auto report = again.load();
    ASSERT_TRUE(report.userFileRead);
    ASSERT_EQ(again.journal.days.size(), 10950u);
    std::size_t entries = 0;
    std::size_t workouts = 0;
    double energyAgain = 0.0;
    for (const JournalDay& d : again.journal.days) {
        ASSERT_EQ(d.meals.size(), 5u);
        for (const Meal& m : d.meals)
            entries += m.entries.size();
        workouts += d.workouts.size();
        energyAgain += again.value(d, 208);
    }
    EXPECT_EQ(entries, 10950u * 5 * 8);
    EXPECT_EQ(workouts, 10950u);
    EXPECT_DOUBLE_EQ(energyAgain, energyTotal);

    // Normalising and saving again changes nothing.
    again.normalise();
    EXPECT_FALSE(again.hasUnsavedChanges());
    again.journal.days.back().notes[1] = "thirty years on";
    ASSERT_TRUE(again.saveCurrentUser().ok());
    Store third;
    third.setPaths(dir / "foods.db", dir.path());
    ASSERT_TRUE(third.load().userFileRead);
    EXPECT_EQ(third.journal.days.back().notes[1], "thirty years on");
    EXPECT_EQ(third.journal.serialize().size(), written.size() + 15);
}
