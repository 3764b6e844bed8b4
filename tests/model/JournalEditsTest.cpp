// Copying a whole day's meals into another date, as the food page's "Copy day from..." does.
#include <gtest/gtest.h>

#include "model/JournalEdits.h"

using namespace velmora::model;

namespace {

TimeT at(const CalendarDate& date, int hour, int minute)
{
    return date.toTime() + hour * 3600 + minute * 60;
}

Meal meal(int kind, TimeT time, std::vector<FoodEntry> entries)
{
    Meal m;
    m.kind = static_cast<std::uint8_t>(kind);
    m.time = time;
    m.entries = std::move(entries);
    return m;
}

constexpr CalendarDate Source{2026, 3, 10};
constexpr CalendarDate Target{2026, 3, 14};

// The source day: breakfast at 8:15 and dinner at 19:00, and an empty lunch. The target day:
// breakfast at 7:30 holding an egg.
UserJournal journal()
{
    UserJournal j;
    JournalDay source;
    source.date = Source.toTime();
    source.meals = {meal(0, at(Source, 8, 15), {{1123, 1.0f}, {9003, 1.82f}}),
                    meal(2, at(Source, 12, 0), {}), meal(3, at(Source, 19, 0), {{4053, 0.1f}})};
    j.days.push_back(source);
    JournalDay target;
    target.date = Target.toTime();
    target.meals = {meal(0, at(Target, 7, 30), {{1123, 0.5f}})};
    j.days.push_back(target);
    return j;
}

std::vector<std::pair<std::int32_t, float>> entriesOf(const Meal& m)
{
    std::vector<std::pair<std::int32_t, float>> out;
    for (const FoodEntry& e : m.entries)
        out.emplace_back(e.food, e.amount);
    return out;
}

TEST(JournalEdits, CopyDayAddsEveryMealAsAddingDoes)
{
    struct Case
    {
        const char* what;
        CalendarDate from;
        CalendarDate to;
        int copied;
        std::vector<Meal> expected; // the meals of `to` afterwards
    };
    const CalendarDate empty{2026, 3, 20};
    const Case cases[] = {
        {"same kinds are summed, new kinds keep their time of day",
         Source,
         Target,
         3,
         {meal(0, at(Target, 7, 30), {{1123, 1.5f}, {9003, 1.82f}}),
          meal(3, at(Target, 19, 0), {{4053, 0.1f}})}},
        {"a date without a day gets one",
         Source,
         empty,
         3,
         {meal(0, at(empty, 8, 15), {{1123, 1.0f}, {9003, 1.82f}}),
          meal(3, at(empty, 19, 0), {{4053, 0.1f}})}},
        {"a later day copied back",
         Target,
         Source,
         1,
         {meal(0, at(Source, 8, 15), {{1123, 1.5f}, {9003, 1.82f}}), meal(2, at(Source, 12, 0), {}),
          meal(3, at(Source, 19, 0), {{4053, 0.1f}})}},
        {"no day on the source date",
         {2026, 3, 11},
         Target,
         0,
         {meal(0, at(Target, 7, 30), {{1123, 0.5f}})}},
        {"a day onto itself", Target, Target, 0, {meal(0, at(Target, 7, 30), {{1123, 0.5f}})}},
    };
    for (const Case& c : cases) {
        UserJournal j = journal();
        const std::size_t daysBefore = j.days.size();
        EXPECT_EQ(copyDayMeals(j, c.from, c.to), c.copied) << c.what;
        const JournalDay* day = findDay(j, c.to);
        ASSERT_NE(day, nullptr) << c.what;
        ASSERT_EQ(day->meals.size(), c.expected.size()) << c.what;
        for (std::size_t m = 0; m < c.expected.size(); ++m) {
            EXPECT_EQ(day->meals[m].kind, c.expected[m].kind) << c.what;
            EXPECT_EQ(day->meals[m].time, c.expected[m].time) << c.what << " meal " << m;
            EXPECT_EQ(entriesOf(day->meals[m]), entriesOf(c.expected[m]))
                << c.what << " meal " << m;
        }
        // The source is never changed, and only a missing target day is added.
        const UserJournal original = journal();
        if (const JournalDay* before = findDay(original, c.from); before && c.from != c.to) {
            const JournalDay* after = findDay(j, c.from);
            ASSERT_EQ(after->meals.size(), before->meals.size()) << c.what;
            for (std::size_t m = 0; m < before->meals.size(); ++m)
                EXPECT_EQ(entriesOf(after->meals[m]), entriesOf(before->meals[m])) << c.what;
        }
        EXPECT_EQ(j.days.size(), daysBefore + (findDay(original, c.to) || c.copied == 0 ? 0 : 1))
            << c.what;
    }
}

} // namespace
