// The edits of health entries, notes and workouts: which day they land in and what they change.

#include <gtest/gtest.h>

#include "fitness/WorkoutFixtures.h"
#include "model/FitnessJournalEdits.h"
#include "model/User.h"

using namespace velmora;
using namespace velmora::model;
using test::at;
using test::dayOf;
using test::setOf;
using test::workoutOf;

namespace {

const CalendarDate May1{2026, 5, 1};
const CalendarDate May2{2026, 5, 2};

HealthEntry weighing(float weight)
{
    HealthEntry entry;
    entry.weight = weight;
    return entry;
}

// A journal whose only day is 1 May holding a weight of 150 and a "Diet" note, or no day at all.
UserJournal journalWithDay(bool dayExists)
{
    UserJournal journal;
    if (dayExists) {
        journal.days.push_back(dayOf(May1, {}));
        journal.days[0].health = weighing(150.0f);
        journal.days[0].notes[2] = "No sugar";
    }
    return journal;
}

} // namespace

TEST(FitnessJournalEdits, StoringIntoADayMakesOneOnlyForAValue)
{
    struct Case
    {
        const char* name;
        bool dayExists;
        int category; // -1: the health entry, with weight as its value; else a note with text
        float weight;
        const char* text;
        bool changed;
        std::size_t days;
    };
    const Case cases[] = {
        {"empty entry, no day: nothing made", false, -1, 0.0f, "", false, 0},
        {"value, no day: a day is appended", false, -1, 151.5f, "", true, 1},
        {"the entry the day holds: nothing changes", true, -1, 150.0f, "", false, 1},
        {"an empty entry clears the day's", true, -1, 0.0f, "", true, 1},
        {"empty note, no day: nothing made", false, 2, 0.0f, "", false, 0},
        {"note, no day: a day is appended", false, 3, 0.0f, "Ran 5 km", true, 1},
        {"the note the day holds: nothing changes", true, 2, 0.0f, "No sugar", false, 1},
        {"an empty note clears the day's", true, 2, 0.0f, "", true, 1},
        {"a category out of range", true, 4, 0.0f, "Ran", false, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UserJournal journal = journalWithDay(c.dayExists);
        const bool changed = c.category < 0 ? storeHealthEntry(journal, May1, weighing(c.weight))
                                            : storeNote(journal, May1, c.category, c.text);
        EXPECT_EQ(changed, c.changed);
        ASSERT_EQ(journal.days.size(), c.days);
        if (c.days == 0 || !c.changed)
            continue;
        const JournalDay& day = journal.days[0];
        EXPECT_EQ(CalendarDate::fromTime(day.date), May1);
        if (c.category < 0) {
            EXPECT_EQ(day.health.weight, c.weight);
        } else {
            EXPECT_EQ(day.notes[static_cast<std::size_t>(c.category)], c.text);
            EXPECT_EQ(day.health.weight, c.dayExists ? 150.0f : 0.0f); // the rest of the day stays
        }
    }
}

TEST(FitnessJournalEdits, ClearingAHealthEntryKeepsTheDayWithAFreshEntry)
{
    UserJournal journal = journalWithDay(true);
    journal.days[0].health.mood = 4;
    EXPECT_FALSE(clearHealthEntry(journal, May2));
    ASSERT_TRUE(clearHealthEntry(journal, May1));
    EXPECT_TRUE(journal.days[0].health.isEmpty());
    EXPECT_EQ(journal.days[0].health.mood, 2);
    EXPECT_EQ(journal.days[0].notes[2], "No sugar");
}

TEST(FitnessJournalEdits, CommittingAWorkoutRenumbersAndFilesItUnderItsDate)
{
    UserJournal journal;
    journal.days.push_back(dayOf(May1, {workoutOf(21, at(May1, 8, 0), 50, {})}));

    // A new workout of May 2: sets A, B, A, A numbered 0, 0, 1, 2 in a new day.
    const auto workout =
        workoutOf(20, at(May2, 18, 30), 360,
                  {setOf(10, 7, {}), setOf(11, 7, {}), setOf(10, 7, {}), setOf(10, 7, {})});
    const WorkoutPlace added = commitWorkout(journal, workout, std::nullopt);
    ASSERT_EQ(journal.days.size(), 2u);
    EXPECT_EQ(added.day, 1u);
    EXPECT_EQ(added.workout, 0u);
    std::vector<std::int32_t> numbers;
    for (const ExerciseRecord& set : journal.days[1].workouts[0].exercises)
        numbers.push_back(set.setNumber);
    EXPECT_EQ(numbers, (std::vector<std::int32_t>{0, 0, 1, 2}));

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
    EXPECT_FALSE(deleteWorkout(journal, {5, 0}));
    ASSERT_EQ(journal.days[0].workouts.size(), 1u);
    EXPECT_EQ(journal.days[0].workouts[0].routine, 20);
}

TEST(FitnessJournalEdits, FitnessColumnsEndAtTheFirstEmptySlot)
{
    User user;
    user.fitnessColumnWidths = {150, 60, 70, 80, 90, 0, 0, 0, 0, 0, 0};
    setFitnessColumns(user, {3, 1, -1, 2, -1, -1, -1, -1, -1, -1});
    EXPECT_EQ(user.fitnessColumns,
              (std::array<std::int32_t, 10>{3, 1, -1, -1, -1, -1, -1, -1, -1, -1}));
    // The emptied slots lose their widths; the date column and the kept slots keep theirs.
    EXPECT_EQ(user.fitnessColumnWidths,
              (std::array<std::int32_t, 11>{150, 60, 70, 0, 0, 0, 0, 0, 0, 0, 0}));
    setFitnessColumnWidth(user, 0, 210);
    setFitnessColumnWidth(user, 11, 99); // no such column
    setFitnessColumnWidth(user, 1, -5);  // no such width
    EXPECT_EQ(user.fitnessColumnWidths,
              (std::array<std::int32_t, 11>{210, 60, 70, 0, 0, 0, 0, 0, 0, 0, 0}));
}
