// The food page's logic: search, the lists, meal rows, adding and removing, the amount rules, the
// details rows, the pies' shares and "Copy meal from...".

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "food/logic/FoodSearch.h"
#include "food/logic/MealCopy.h"
#include "food/logic/MealEditing.h"
#include "model/Store.h"
#include "support/Builders.h"

using namespace velmora;
using velmora::test::FoodBuilder;

namespace {

constexpr std::int32_t Dairy = 100;
constexpr std::int32_t Fruit = 900;

// Two groups (and the release marker), four database foods and two custom foods.
model::Store smallStore()
{
    static const std::vector<model::NutrientDef> catalogue = test::standardCatalogue();
    model::Store store;
    store.foods.setCatalogue(catalogue);
    store.foods.catalogue().appendComputed();
    store.foods.addGroup({Fruit, "Fruits and Fruit Juices"});
    store.foods.addGroup({model::FoodDatabase::SourceGroupNumber, "USDA SR24"});
    store.foods.addGroup({Dairy, "Dairy and Egg Products"});
    store.foods.addFood(FoodBuilder(catalogue, 1123, "Egg, whole, raw, fresh")
                            .group(Dairy)
                            .value(203, 12.56f)
                            .value(204, 9.51f)
                            .value(205, 0.72f)
                            .value(208, 143.0f)
                            .measure(50.0f, "large")
                            .measure(243.0f, "cup (4.86 large eggs)"));
    store.foods.addFood(FoodBuilder(catalogue, 1077, "Milk, whole").group(Dairy).value(208, 61.0f));
    store.foods.addFood(FoodBuilder(catalogue, 9003, "Apples, raw, with skin")
                            .group(Fruit)
                            .value(205, 13.81f)
                            .value(208, 52.0f)
                            .measure(182.0f, "medium"));
    store.foods.addFood(FoodBuilder(catalogue, 9040, "Bananas, raw").group(Fruit));
    store.shared.customFoods.push_back(FoodBuilder(catalogue, 70000, "Grandma's apple pie")
                                           .group(0)
                                           .value(208, 400.0f)
                                           .serving(150.0f));
    store.shared.customFoods.push_back(
        FoodBuilder(catalogue, 70001, "Egg sandwich").serving(120.0f));
    return store;
}

std::vector<std::int32_t> search(const model::Store& s, const std::string& text, std::int32_t group)
{
    return food::searchFoods(s.foods, s.shared.customFoods, text, group);
}

using Numbers = std::vector<std::int32_t>;

// Trimmed, upper-cased substrings; custom foods first and whatever the group; blank text lists
// everything of the group.
TEST(FoodSearch, SubstringOfTheNameWithinTheGroup)
{
    const model::Store s = smallStore();
    const std::tuple<const char*, std::int32_t, Numbers> cases[] = {
        {"  egg ", food::AllGroupsValue, {70001, 1123}},
        {"APPLE", food::AllGroupsValue, {70000, 9003}},
        {"raw", food::AllGroupsValue, {1123, 9003, 9040}},
        {"r, w", food::AllGroupsValue, {}},
        {"kiwi", food::AllGroupsValue, {}},
        {"", food::AllGroupsValue, {70000, 70001, 1123, 1077, 9003, 9040}},
        {"   ", Fruit, {70000, 70001, 9003, 9040}},
        {"egg", Fruit, {70001}},
        {"raw", Dairy, {1123}},
    };
    for (const auto& [text, group, expected] : cases)
        EXPECT_EQ(search(s, text, group), expected) << text << " in " << group;
    EXPECT_EQ(food::searchKey("\t apple pie  "), "APPLE PIE");
}

TEST(FoodSearch, GroupPickerStartsWithAllGroupsAndSkipsTheReleaseMarker)
{
    const auto choices = food::groupChoices(smallStore().foods);
    ASSERT_EQ(choices.size(), 3u);
    EXPECT_EQ(choices[0].name, " <All Groups>");
    EXPECT_EQ(choices[0].value, 1);
    EXPECT_EQ(choices[1].name, "Dairy and Egg Products");
    EXPECT_EQ(choices[1].value, Dairy);
    EXPECT_EQ(choices[2].name, "Fruits and Fruit Juices");
}

TEST(FoodSearch, RecentFoodsSkipMissingFoodsAndStopAtTheCount)
{
    model::Store s = smallStore();
    model::User& user = s.journal.user;
    for (std::int32_t n : {9040, 4242, 1123, 70001, 9003}) // 4242 is no food
        user.noteRecentFood(n);
    user.recentFoodsCount = 3;
    EXPECT_EQ(food::recentFoodList(s, user), (Numbers{9003, 70001, 1123}));
    user.recentFoodsCount = 25;
    EXPECT_EQ(food::recentFoodList(s, user), (Numbers{9003, 70001, 1123, 9040}));
    EXPECT_EQ(food::customFoodList(s.shared.customFoods), (Numbers{70000, 70001}));
}

TEST(MealEditing, AddingTheSameFoodTwiceSumsIntoOneEntry)
{
    model::Meal meal;
    food::addToMeal(meal, 1123, 0.5f);
    food::addToMeal(meal, 9003, 1.82f);
    food::addToMeal(meal, 1123, 1.0f);
    ASSERT_EQ(meal.entries.size(), 2u);
    EXPECT_EQ(meal.entries[0].food, 1123);
    EXPECT_FLOAT_EQ(meal.entries[0].amount, 1.5f);
    EXPECT_EQ(meal.entries[1].food, 9003);
}

TEST(MealEditing, AmountFloorCeilingAndMeasureFactor)
{
    EXPECT_DOUBLE_EQ(food::clampAmount(0.25 - food::AmountStep), 0.25); // spinning down from 0.25
    EXPECT_DOUBLE_EQ(food::clampAmount(0.1), 0.25);
    EXPECT_DOUBLE_EQ(food::clampAmount(0.5), 0.5);
    EXPECT_DOUBLE_EQ(food::clampAmount(250), 100);
    const model::Store s = smallStore();
    const model::FoodItem& egg = *s.findFood(1123);
    EXPECT_DOUBLE_EQ(food::measureFactor(egg, 0), 0.5);
    EXPECT_DOUBLE_EQ(food::measureFactor(egg, 1), 2.43);
    EXPECT_DOUBLE_EQ(food::measureFactor(egg, 2), 1.0); // no such measure
    EXPECT_DOUBLE_EQ(food::measureFactor(*s.findFood(70000), 0), 1.0);
}

TEST(MealEditing, MealRowTextsAndMissingFoods)
{
    const model::Store s = smallStore();
    EXPECT_EQ(food::mealRowText(*s.findFood(1123), 1.0f), "2 x large - Egg, whole, raw, fresh");
    EXPECT_EQ(food::mealRowText(*s.findFood(1123), 0.5f), "large - Egg, whole, raw, fresh");
    EXPECT_EQ(food::mealRowText(*s.findFood(1123), 0.3f), "30.00g - Egg, whole, raw, fresh");
    EXPECT_EQ(food::mealRowText(*s.findFood(70000), 1.5f), "1.50 x Grandma's apple pie");

    model::Meal meal;
    meal.entries = {{9003, 1.82f}, {4242, 1.0f}, {70001, 2.0f}};
    const auto rows = food::mealRows(s, meal);
    ASSERT_EQ(rows.size(), 2u); // the entry of the missing food is skipped
    EXPECT_EQ(rows[0].text, "medium - Apples, raw, with skin");
    EXPECT_EQ(rows[1].entry, 2u);
    EXPECT_EQ(rows[1].text, "2.00 x Egg sandwich");
}

TEST(MealEditing, DetailsRowsScaleByAmountExceptTheEnergyShares)
{
    const model::Store s = smallStore();
    const auto rows =
        food::detailsRows(s.foods.catalogue(), *s.findFood(1123), 0.5, {208, 203, 102, 4242, 100});
    ASSERT_EQ(rows.size(), 4u); // 4242 is not in the catalogue
    EXPECT_EQ(rows[0].name, "Energy");
    EXPECT_EQ(rows[0].value, "71.5");
    EXPECT_EQ(rows[1].value, "6.3"); // 12.56 x 0.5 = 6.28
    EXPECT_EQ(rows[2].name, "% Protein");
    EXPECT_EQ(rows[2].value, "35.1"); // 12.56 x 4 / 143 x 100, not halved
    EXPECT_EQ(rows[3].value, "59.9"); // 9.51 x 9 / 143 x 100
}

TEST(MealEditing, PieSharesAreEachPartOfTheThreesSum)
{
    const auto p = food::pieSlicePercents({30.0, 50.0, 20.0}); // fat, carbohydrate, protein
    EXPECT_DOUBLE_EQ(p[0], 20.0);                              // protein first
    EXPECT_DOUBLE_EQ(p[1], 50.0);
    EXPECT_DOUBLE_EQ(p[2], 30.0);
    const auto q = food::pieSlicePercents({45.0, 40.0, 35.0}); // sums to 120
    EXPECT_DOUBLE_EQ(q[0], 35.0 / 120.0 * 100.0);
    EXPECT_EQ(food::pieSlicePercents({}), (std::array<double, 3>{0, 0, 0}));

    model::User user;
    user.goalNutrients = {208, 100, 101, 102};
    EXPECT_DOUBLE_EQ(food::goalShares(user).fat, 0.0); // goals never set
    user.goalValues = {2000.0f, 30.0f, 55.0f, 15.0f};
    const food::EnergyShares g = food::goalShares(user);
    EXPECT_DOUBLE_EQ(g.fat, 30.0);
    EXPECT_DOUBLE_EQ(g.carbohydrate, 55.0);
    EXPECT_DOUBLE_EQ(g.protein, 15.0);
}

TEST(MealEditing, MealsAreStoredWithTheirFirstFoodAndTidiedWhenEmptied)
{
    model::Store s = smallStore();
    const model::CalendarDate date{2026, 3, 14};
    EXPECT_EQ(model::findDay(s.journal, date), nullptr);
    model::Meal& lunch = food::mealForAdding(s.journal, date, 2, food::mealTimeOn(date, 12, 30));
    food::addToMeal(lunch, 1123, 1.0f);
    ASSERT_EQ(s.journal.days.size(), 1u);
    EXPECT_EQ(s.journal.days[0].date, date.toTime());
    EXPECT_EQ(s.journal.days[0].meals[0].kind, 2);
    EXPECT_EQ(s.journal.days[0].meals[0].time, date.toTime() + 12 * 3600 + 30 * 60);
    food::addToMeal(food::mealForAdding(s.journal, date, 2, 0), 9003, 1.0f);
    EXPECT_EQ(s.journal.days[0].meals.size(), 1u); // the same meal again

    EXPECT_FALSE(food::removeMealEntry(s.journal, date, 3, 0)); // no dinner
    EXPECT_TRUE(food::removeMealEntry(s.journal, date, 2, 0));
    ASSERT_EQ(s.journal.days[0].meals[0].entries.size(), 1u);
    EXPECT_EQ(s.journal.days[0].meals[0].entries[0].food, 9003);
    EXPECT_TRUE(food::removeMealEntry(s.journal, date, 2, 0));
    EXPECT_TRUE(s.journal.days.empty()); // the emptied meal and day are gone

    // A day that holds something else stays when its last meal goes.
    food::addToMeal(food::mealForAdding(s.journal, date, 0, 0), 1123, 1.0f);
    s.journal.days[0].notes[0] = "Ran 5 km";
    EXPECT_TRUE(food::removeMealEntry(s.journal, date, 0, 0));
    ASSERT_EQ(s.journal.days.size(), 1u);
    EXPECT_TRUE(s.journal.days[0].meals.empty());
}

TEST(MealCopy, DefaultSourceIsTheLatestEarlierDayWithThatMeal)
{
    std::vector<model::JournalDay> days;
    const auto at = [](int d) { return model::CalendarDate{2026, 3, d}.toTime(); };
    days.push_back(test::dayWithMeal(at(10), 0, {{1123, 1.0f}}));
    days.push_back(test::dayWithMeal(at(12), 0, {{9003, 1.0f}}));
    days.push_back(test::dayWithMeal(at(11), 0, {{1077, 2.0f}}));
    days.push_back(test::dayWithMeal(at(13), 2, {{1077, 2.0f}})); // lunch only
    days.push_back(test::dayWithMeal(at(15), 0, {{1077, 2.0f}})); // later than the date
    const model::CalendarDate today{2026, 3, 14};
    const model::JournalDay* source = food::defaultCopySource(days, today, 0);
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->date, at(12));
    EXPECT_EQ(food::defaultCopySource(days, today, 2)->date, at(13));
    EXPECT_EQ(food::defaultCopySource(days, today, 3), nullptr);
    EXPECT_EQ(food::defaultCopySource(days, {2026, 3, 10}, 0), nullptr); // nothing earlier

    // A whole day: the latest earlier day with any food; a day of empty meals does not count.
    days.push_back(test::dayWithMeal(at(14), 1, {}));
    days.back().date = model::CalendarDate{2026, 3, 13}.toTime() + 3600;
    EXPECT_EQ(food::latestDayWithFoods(days, today)->date, at(13));
    EXPECT_EQ(food::latestDayWithFoods(days, {2026, 3, 13})->date, at(12));
    EXPECT_EQ(food::latestDayWithFoods(days, {2026, 3, 10}), nullptr);
}

TEST(MealCopy, ANewMealStartsAtItsLastTimeOrAtAUsualTimeForItsKind)
{
    std::vector<model::JournalDay> days;
    const auto at = [](int d) { return model::CalendarDate{2026, 3, d}.toTime(); };
    days.push_back(test::dayWithMeal(at(10), 0, {{1123, 1.0f}}));
    days.back().meals[0].time = at(10) + 7 * 3600 + 15 * 60;
    days.push_back(test::dayWithMeal(at(12), 0, {{1123, 1.0f}}));
    days.back().meals[0].time = at(12) + 6 * 3600 + 45 * 60;
    days.push_back(test::dayWithMeal(at(16), 0, {{1123, 1.0f}})); // later than the date
    days.back().meals[0].time = at(16) + 9 * 3600;
    days.push_back(test::dayWithMeal(at(11), 3, {{1123, 1.0f}}));
    days.back().meals[0].time = at(10); // a time outside its own day is not taken over
    struct Case
    {
        int day, kind, minutes;
    };
    const Case cases[] = {
        {14, 0, 6 * 60 + 45},  // the latest earlier breakfast
        {11, 0, 7 * 60 + 15},  // the one before that
        {10, 0, 8 * 60},       // none earlier: the usual breakfast time
        {14, 2, 12 * 60 + 30}, // no lunch anywhere
        {14, 3, 18 * 60 + 30}, // the only dinner had a time outside its day
        {14, 9, 12 * 60},
    };
    for (const Case& c : cases)
        EXPECT_EQ(food::defaultMealMinutes(days, {2026, 3, c.day}, c.kind), c.minutes)
            << c.day << " " << c.kind;
}

TEST(MealCopy, CopiedFoodsSumIntoTheCurrentMeal)
{
    model::Meal from;
    from.entries = {{1123, 1.0f}, {9003, 1.82f}};
    model::Meal to;
    to.entries = {{9003, 0.5f}, {1077, 2.0f}};
    EXPECT_EQ(food::copyMealEntries(from, to), 2);
    ASSERT_EQ(to.entries.size(), 3u);
    EXPECT_FLOAT_EQ(to.entries[0].amount, 2.32f);
    EXPECT_EQ(to.entries[2].food, 1123);
    // Copying a meal onto itself doubles it rather than running forever.
    EXPECT_EQ(food::copyMealEntries(to, to), 3);
    EXPECT_FLOAT_EQ(to.entries[1].amount, 4.0f);
    EXPECT_EQ(to.entries.size(), 3u);
}

} // namespace
