// Rows of the journal list page and deleting what a row stands for.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "food/logic/CustomFoods.h"
#include "food/logic/JournalRows.h"
#include "model/DateText.h"
#include "model/Store.h"

using namespace velmora;
using food::JournalRowRef;
using food::RowLevel;

namespace {

const model::TimeT Day1 = model::CalendarDate{2026, 3, 10}.toTime();
const model::TimeT Day2 = model::CalendarDate{2026, 3, 12}.toTime();
const model::TimeT Now = model::CalendarDate{2026, 3, 12}.toTime() + 15 * 3600;

model::FoodItem foodOf(std::int32_t number, const char* name, float protein, float energy)
{
    model::FoodItem f;
    f.number = number;
    f.name = name;
    f.values[0] = protein;
    f.values[1] = energy;
    return f;
}

model::Meal mealOf(std::uint8_t kind, std::vector<model::FoodEntry> entries)
{
    model::Meal m;
    m.kind = kind;
    m.entries = std::move(entries);
    return m;
}

// Two database foods, one custom food, and two days: Day1 with lunch; Day2 with dinner stored
// before breakfast, a meal whose only food is unknown, and an unknown entry inside breakfast.
model::Store journalStore()
{
    model::Store store;
    store.foods.setCatalogue({{203, "g", "Protein"}, {208, "kcal", "Energy"}});
    store.foods.catalogue().appendComputed();
    store.foods.addFood(foodOf(1001, "Egg, whole", 12.6f, 143.0f));
    store.foods.addFood(foodOf(1002, "Bread", 9.0f, 265.0f));
    food::storeCustomFood(store, "Shake", 300.0f, std::vector<float>{30.0f, 200.0f});

    auto& journal = store.journal;
    journal.user.listColumns = {208, 203, 104, -1, 205, -1, -1, -1, -1, -1};
    journal.user.daysInLists = 30;

    model::JournalDay day1;
    day1.date = Day1;
    day1.meals.push_back(mealOf(2, {{1002, 0.5f}}));
    journal.days.push_back(day1);

    model::JournalDay day2;
    day2.date = Day2;
    day2.meals.push_back(mealOf(3, {{70000, 2.0f}}));
    day2.meals.push_back(mealOf(5, {{4242, 1.0f}}));
    day2.meals.push_back(mealOf(0, {{1001, 1.0f}, {4242, 3.0f}, {1002, 0.25f}}));
    journal.days.push_back(day2);
    return store;
}

// Each row as "label: value value ...".
std::vector<std::string> shown(const std::vector<food::JournalRow>& rows)
{
    std::vector<std::string> out;
    for (const auto& r : rows) {
        out.push_back(r.label + ":");
        for (double v : r.values)
            out.back() += model::formatText(" %g", v);
    }
    return out;
}

} // namespace

// Days newest first, meals in meal order, unknown foods left out; the values follow the column
// slots up to the first empty one (energy, protein, amount in g) and add up per meal and day.
TEST(JournalRows, RowsAndTheirValues)
{
    const model::Store store = journalStore();
    const auto rows = food::buildJournalRows(store, Now);
    const auto serving = [&](std::int32_t food, float amount) {
        return model::servingText(*store.foods.findDatabaseFood(food), amount);
    };
    // Breakfast: egg 100 g (143 kcal, 12.6 g) + bread 25 g (66.25 kcal, 2.25 g); dinner: two
    // servings of the shake, 300 g each; lunch: bread 50 g.
    const std::vector<std::string> expected{
        model::longDateText(Day2) + ": 609.25 74.85 725",
        "Breakfast: 209.25 14.85 125",
        serving(1001, 1.0f) + " - Egg, whole: 143 12.6 100",
        serving(1002, 0.25f) + " - Bread: 66.25 2.25 25",
        "Dinner: 400 60 600",
        "2.00 x Shake: 400 60 600",
        model::longDateText(Day1) + ": 132.5 4.5 50",
        "Lunch: 132.5 4.5 50",
        serving(1002, 0.5f) + " - Bread: 132.5 4.5 50",
    };
    EXPECT_EQ(shown(rows), expected);
    ASSERT_EQ(rows.size(), expected.size());
    EXPECT_EQ(food::columnValueText(rows[0].values[0]), "609.2");

    EXPECT_EQ(rows[0].level, RowLevel::Day);
    EXPECT_EQ(rows[1].level, RowLevel::Meal);
    EXPECT_EQ(rows[2].level, RowLevel::Food);
    // References point at the stored records, whatever the display order.
    EXPECT_EQ(rows[0].ref, (JournalRowRef{1, -1, -1}));
    EXPECT_EQ(rows[1].ref, (JournalRowRef{1, 2, -1}));
    EXPECT_EQ(rows[3].ref, (JournalRowRef{1, 2, 2}));
    EXPECT_EQ(rows[5].ref, (JournalRowRef{1, 0, 0}));
    EXPECT_EQ(rows[8].ref, (JournalRowRef{0, 0, 0}));
}

TEST(JournalRows, TheDaysSettingLimitsTheListByAgeInWholeDays)
{
    model::Store store = journalStore();
    // Day1 is 2 days and 15 hours old at Now: two whole days.
    struct Case
    {
        int days;
        std::size_t dayRows;
    };
    for (const Case c : {Case{1, 1}, Case{2, 2}, Case{0, 2}, Case{1067, 2}}) {
        store.journal.user.daysInLists = c.days;
        const auto rows = food::buildJournalRows(store, Now);
        std::size_t dayRows = 0;
        for (const auto& r : rows)
            dayRows += r.level == RowLevel::Day;
        EXPECT_EQ(dayRows, c.dayRows) << "days in lists " << c.days;
    }
    store.journal.user.listColumns.fill(-1);
    for (const auto& r : food::buildJournalRows(store, Now))
        EXPECT_TRUE(r.values.empty());
}

TEST(DeleteJournalItem, FoodsThenEmptiedMealsThenEmptiedDaysGo)
{
    model::Store store = journalStore();
    auto& journal = store.journal;

    // One food of three: the meal stays.
    ASSERT_TRUE(food::deleteJournalItem(journal, {1, 2, 0}));
    ASSERT_EQ(journal.days[1].meals[2].entries.size(), 2u);
    EXPECT_EQ(journal.days[1].meals[2].entries[0].food, 4242);

    // The only food of Day1's lunch: the meal goes, and with it the day.
    ASSERT_TRUE(food::deleteJournalItem(journal, {0, 0, 0}));
    ASSERT_EQ(journal.days.size(), 1u);
    EXPECT_EQ(journal.days[0].date, Day2);

    // A whole meal.
    ASSERT_TRUE(food::deleteJournalItem(journal, {0, 0, -1}));
    ASSERT_EQ(journal.days[0].meals.size(), 2u);
    EXPECT_EQ(journal.days[0].meals[0].kind, 5);

    // References that point nowhere change nothing.
    EXPECT_FALSE(food::deleteJournalItem(journal, {3, -1, -1}));
    EXPECT_FALSE(food::deleteJournalItem(journal, {0, 7, -1}));
    EXPECT_FALSE(food::deleteJournalItem(journal, {0, 0, 9}));
    EXPECT_EQ(journal.days[0].meals.size(), 2u);
}

TEST(DeleteJournalItem, ADayKeepsWhatTheListDoesNotShow)
{
    model::Store store = journalStore();
    auto& journal = store.journal;
    journal.days[1].notes[0] = "Slept badly";

    // Deleting a day row removes its meals; the note keeps the day.
    ASSERT_TRUE(food::deleteJournalItem(journal, {1, -1, -1}));
    ASSERT_EQ(journal.days.size(), 2u);
    EXPECT_TRUE(journal.days[1].meals.empty());
    EXPECT_EQ(journal.days[1].notes[0], "Slept badly");

    // A day with nothing else is removed whole.
    ASSERT_TRUE(food::deleteJournalItem(journal, {0, -1, -1}));
    ASSERT_EQ(journal.days.size(), 1u);
    EXPECT_EQ(journal.days[0].date, Day2);
    EXPECT_TRUE(food::buildJournalRows(store, Now).empty());
}
