// Rows, status texts and columns of the fitness log page.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "WorkoutFixtures.h"
#include "fitness/logic/FitnessLog.h"

using namespace velmora;
using namespace velmora::fitness;
using model::CalendarDate;
using test::at;
using test::dayOf;
using test::setOf;
using test::workoutOf;

namespace {

const model::TimeT Now = at({2026, 3, 13}, 12, 0);

// Metric user (24-hour times, day-first dates), seven days listed, columns Reps and Time.
model::UserJournal loggedJournal()
{
    model::UserJournal journal;
    journal.user.metric = 1;
    journal.user.daysInLists = 7;
    journal.user.fitnessColumns = {1, 3, -1, 2, -1, -1, -1, -1, -1, -1};
    journal.days = {
        dayOf({2026, 3, 5}, {workoutOf(20, at({2026, 3, 5}, 9, 0), 100, {})}),   // 8 days old
        dayOf({2026, 3, 6}, {workoutOf(21, at({2026, 3, 6}, 18, 30), 120, {})}), // 7 days old
        dayOf({2026, 3, 11}, {}),                                                // no workout
        dayOf({2026, 3, 12},
              {workoutOf(20, at({2026, 3, 12}, 7, 5), 300,
                         {setOf(10, 0, {{1, "10"}, {2, "50"}}), setOf(10, 1, {{1, "8"}}),
                          setOf(11, 0, {{3, "00:20:00"}}), setOf(42, 0, {})}),
               workoutOf(77, at({2026, 3, 12}, 12, 0), 100, {}), // routine deleted
               workoutOf(21, at({2026, 3, 12}, 19, 0), 50, {setOf(11, 0, {})})}),
    };
    journal.days[2].notes[0] = "rest day";
    return journal;
}

} // namespace

TEST(FitnessLog, RowsOfListedDays)
{
    const model::SharedData shared = test::workoutDefinitions();
    const model::UserJournal journal = loggedJournal();
    const std::vector<FitnessRow> rows = fitnessLogRows(shared, journal, Now);

    struct Expected
    {
        FitnessRowRef ref;
        const char* label;
        std::vector<std::string> cells;
    };
    const std::vector<Expected> expected = {
        {{1, -1, -1}, "6/3/2026 - 120 Calories", {}},  {{1, 0, -1}, "Pull @ 18:30", {}},
        {{3, -1, -1}, "12/3/2026 - 450 Calories", {}}, {{3, 0, -1}, "Push @ 7:05", {}},
        {{3, 0, 0}, "Press [set 1]", {"10", ""}},      {{3, 0, 1}, "Press [set 2]", {"8", ""}},
        {{3, 0, 2}, "Row [set 1]", {"", "00:20:00"}},
        // The set of a deleted exercise is left out; the workout of a deleted routine ends the
        // day's listing, so the "Pull" workout after it is not listed either.
    };
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(expected[i].label);
        EXPECT_EQ(rows[i].ref, expected[i].ref);
        EXPECT_EQ(rows[i].label, expected[i].label);
        EXPECT_EQ(rows[i].cells, expected[i].cells);
    }
}

TEST(FitnessLog, StatusTexts)
{
    const model::SharedData shared = test::workoutDefinitions();
    const model::UserJournal journal = loggedJournal();
    struct Case
    {
        FitnessRowRef ref;
        const char* text;
        bool editable;
    };
    const Case cases[] = {
        {{3, 0, -1}, "Push @ 7:05", true},
        {{3, 0, 1}, "Push @ 7:05 : Press [set 2]", true},
        {{3, -1, -1}, "", false},
        {{3, 1, -1}, "", true}, // deleted routine
        {{9, 0, -1}, "", true}, // no such day
        {{3, 0, 9}, "", true},  // no such set
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(fitnessStatusText(shared, journal, c.ref), c.text);
        EXPECT_EQ(workoutRowSelected(&c.ref), c.editable);
    }
    EXPECT_FALSE(workoutRowSelected(nullptr));
}

TEST(FitnessLog, ColumnWidthsSavedOrFromTheHeader)
{
    model::User user;
    EXPECT_EQ(dateColumnWidth(user), 150);
    user.fitnessColumnWidths = {210, 0, 90, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(dateColumnWidth(user), 210);
    EXPECT_EQ(fieldColumnWidth(user, 0, 40), 55); // the header text plus 15
    EXPECT_EQ(fieldColumnWidth(user, 1, 40), 90);
}
