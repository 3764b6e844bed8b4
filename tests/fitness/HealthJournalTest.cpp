// The health page's days: "Previous Entries", "Previous Values", the pending delete and the
// Measurements dialog.

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "fitness/logic/HealthJournal.h"
#include "fitness/logic/Measurements.h"
#include "model/UserDatabase.h"

using namespace velmora;
using namespace velmora::fitness;
using model::CalendarDate;

namespace {

model::JournalDay dayOn(CalendarDate date, float weight)
{
    model::JournalDay day;
    day.date = date.toTime();
    day.health.weight = weight;
    return day;
}

// Days in list order (not date order): 10 March empty (a meal only), 12 March weight 150,
// 5 March weight 140, 14 March empty, 16 March weight 155.
model::UserJournal journalOfDays()
{
    model::UserJournal journal;
    journal.days = {dayOn({2026, 3, 10}, 0.0f), dayOn({2026, 3, 12}, 150.0f),
                    dayOn({2026, 3, 5}, 140.0f), dayOn({2026, 3, 14}, 0.0f),
                    dayOn({2026, 3, 16}, 155.0f)};
    journal.days[0].meals.push_back({});
    return journal;
}

} // namespace

TEST(HealthJournal, PreviousEntriesListOnlyEntriesWithValues)
{
    const model::UserJournal journal = journalOfDays();
    const std::vector<std::size_t> lines = healthEntryDays(journal);
    EXPECT_EQ(lines, (std::vector<std::size_t>{1, 2, 4}));
    EXPECT_EQ(lineOfDate(journal, lines, {2026, 3, 5}), 1u);
    EXPECT_EQ(lineOfDate(journal, lines, {2026, 3, 14}), std::nullopt);
    EXPECT_TRUE(previousValuesEnabled(journal));
    EXPECT_FALSE(previousValuesEnabled(model::UserJournal{}));
}

TEST(HealthJournal, PreviousValuesTakesTheLatestEarlierEntryWithValues)
{
    const model::UserJournal journal = journalOfDays();
    struct Case
    {
        CalendarDate page;
        std::optional<std::size_t> day;
    };
    const Case cases[] = {
        {{2026, 3, 5}, std::nullopt}, // the earliest entry itself
        {{2026, 3, 1}, std::nullopt}, // before every day
        {{2026, 3, 10}, 2u},          // 5 March; the empty 10 March does not count
        {{2026, 3, 12}, 2u},          // not the page's own day
        {{2026, 3, 15}, 1u},          // 12 March, past the empty 14 March
        {{2026, 3, 20}, 4u},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.page.day);
        EXPECT_EQ(previousValuesDay(journal, c.page), c.day);
    }

    // Only empty entries earlier: nothing.
    model::UserJournal onlyEmpty;
    onlyEmpty.days.push_back(dayOn({2026, 3, 10}, 0.0f));
    EXPECT_EQ(previousValuesDay(onlyEmpty, {2026, 3, 11}), std::nullopt);
}

TEST(HealthJournal, DeleteSkipsTheStoreAndShowsAFreshEntryOnce)
{
    const model::UserJournal journal = journalOfDays();
    PendingDelete pending;

    auto steps = pending.beginLoad();
    EXPECT_TRUE(steps.storeShownDay);
    EXPECT_EQ(entryToShow(journal, {2026, 3, 12}, steps).weight, 150.0f);

    pending.mark();
    steps = pending.beginLoad();
    EXPECT_FALSE(steps.storeShownDay);
    EXPECT_TRUE(steps.clearDayEntry);
    const model::HealthEntry fresh = entryToShow(journal, {2026, 3, 12}, steps);
    EXPECT_TRUE(fresh.isEmpty());
    EXPECT_EQ(fresh.mood, 2);

    EXPECT_FALSE(pending.pending());
    EXPECT_TRUE(pending.beginLoad().storeShownDay);
    // A date without a day shows a new entry: every value 0, mood "OK".
    const model::HealthEntry blank = entryToShow(journal, {2026, 4, 1}, pending.beginLoad());
    EXPECT_TRUE(blank.isEmpty());
    EXPECT_EQ(blank.mood, 2);
}

TEST(Measurements, PairsStoreRightBeforeLeftAndShareTheirGoal)
{
    MeasurementEdits edits{};
    for (std::size_t i = 0; i < edits.size(); ++i)
        edits[i] = {10.0f + static_cast<float>(i), 20.0f + static_cast<float>(i)};
    model::HealthEntry entry;
    applyMeasurementEdits(entry, edits);
    // Stored order: neck .. hips, then right before left in each pair.
    const std::array<float, model::MeasurementCount> stored = {10, 11, 12, 13, 14, 15, 26,
                                                               16, 27, 17, 28, 18, 29, 19};
    EXPECT_EQ(entry.measurements, stored);
    model::User user;
    for (std::size_t g = 0; g < user.bodyGoals.size(); ++g)
        user.bodyGoals[g] = static_cast<float>(g + 1);
    EXPECT_EQ(measurementGoal(user, MeasurementRows[0]), 1.0f);
    EXPECT_EQ(measurementGoal(user, MeasurementRows[9]), 10.0f); // "Calves:", both sides
}
