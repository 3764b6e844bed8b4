// The journal notes page: "Previous Entries" per category and the note of a day.

#include <gtest/gtest.h>

#include <vector>

#include "WorkoutFixtures.h"
#include "fitness/logic/JournalNotes.h"
#include "model/UserDatabase.h"

using namespace velmora;
using namespace velmora::fitness;

namespace {

constexpr int Personal = 0;
constexpr int Diet = 2;
constexpr int Fitness = 3;

} // namespace

TEST(JournalNotes, PreviousEntriesPerCategory)
{
    model::UserJournal journal;
    for (int day = 1; day <= 3; ++day)
        journal.days.push_back(test::dayOf({2026, 3, day}, {}));
    journal.days[0].notes[Fitness] = "Ran 5 km";
    journal.days[1].notes[Diet] = "No sugar";
    journal.days[1].notes[Fitness] = "Rest";

    EXPECT_EQ(noteDays(journal, Fitness), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(noteDays(journal, Diet), (std::vector<std::size_t>{1}));
    EXPECT_TRUE(noteDays(journal, Personal).empty());
    EXPECT_TRUE(noteDays(journal, 4).empty());
    EXPECT_EQ(noteOf(journal, {2026, 3, 1}, Fitness), "Ran 5 km");
    EXPECT_EQ(noteOf(journal, {2026, 3, 1}, Diet), "");
    EXPECT_EQ(noteOf(journal, {2026, 4, 1}, Diet), "");
}
