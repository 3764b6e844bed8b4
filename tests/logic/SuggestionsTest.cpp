// The word search behind the suggestions and the extra search results: which names the typed words
// find, and in what order, on small food lists and on the built foods.db.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "food/logic/FoodSearch.h"
#include "food/logic/Suggestions.h"
#include "model/DateText.h"
#include "model/FoodDatabase.h"
#include "support/Builders.h"

using namespace velmora;
using food::AllGroupsValue;

namespace {

constexpr std::int32_t Dairy = 100;
constexpr std::int32_t Fruit = 900;
constexpr std::int32_t Vegetables = 1100;
constexpr std::int32_t Cereals = 800;

model::FoodItem item(std::int32_t number, std::int32_t group, std::string name)
{
    model::FoodItem f;
    f.number = number;
    f.group = group;
    f.name = std::move(name);
    return f;
}

const std::vector<model::FoodItem>& smallDatabase()
{
    static const std::vector<model::FoodItem> foods{
        item(1, Fruit, "Bananas, raw"),
        item(2, 300, "Babyfood, fruit, bananas and pears, strained"),
        item(3, Cereals, "Cereals ready-to-eat, banana nut crunch"),
        item(4, Dairy, "Egg, whole, raw, fresh"),
        item(5, Dairy, "Egg, white, raw, fresh"),
        item(6, Vegetables, "Eggplant, raw"),
        item(7, Fruit, "Peaches, canned, heavy syrup"),
        item(8, Dairy, "Cheese, cottage, creamed"),
        item(9, Fruit, "Blueberries, raw"),
        item(10, Cereals, "Kellogg's Corn Flakes"),
        item(11, Dairy, "Egg, whole, cooked, fried"),
    };
    return foods;
}

const std::vector<model::FoodItem> NoCustomFoods;
const food::FoodHistory NoHistory;
constexpr long Today = 20'000;

TEST(FoodWords, SplittingAndPlurals)
{
    EXPECT_EQ(food::searchWords("Kellogg's Corn-Flakes, 2% (new)"),
              (std::vector<std::string>{"KELLOGGS", "CORN", "FLAKES", "2", "NEW"}));
    EXPECT_EQ(food::searchWords(" 'egg'  "), (std::vector<std::string>{"EGG"}));
    EXPECT_EQ(food::searchWords("cr\xe8me"), (std::vector<std::string>{"CR\xc8ME"}));
    EXPECT_TRUE(food::searchWords(" ,;- ").empty());

    struct Case
    {
        const char* a;
        const char* b;
        bool same;
    };
    const Case cases[] = {
        {"EGG", "EGGS", true},      {"BANANAS", "BANANA", true}, {"PEACHES", "PEACH", true},
        {"BERRIES", "BERRY", true}, {"CHEESES", "CHEESE", true}, {"TOMATOES", "TOMATO", true},
        {"PEAS", "PEA", true},      {"EGG", "EGGPLANT", false},  {"EGGS", "EGGNOG", false},
        {"AS", "A", false},         {"RAW", "ROW", false},       {"BEAN", "BEANS", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(food::sameWord(c.a, c.b), c.same) << c.a << " / " << c.b;
        EXPECT_EQ(food::sameWord(c.b, c.a), c.same) << c.b << " / " << c.a;
    }
}

TEST(Suggestions, WordsInAnyOrderRankedByPlaceAndLength)
{
    const food::FoodWordIndex index(smallDatabase());
    const food::WordSearchContext context{index, NoCustomFoods, NoHistory, Today};
    struct Case
    {
        const char* text;
        std::vector<std::int32_t> expected;
    };
    const Case cases[] = {
        // The word first in the name ranks first; a plural is forgiven either way.
        {"banana", {1, 2, 3}},
        {"BANANAS", {1, 2, 3}},
        // Equal places: the shorter name first, then database order; the word being typed may
        // also start a longer word, after every whole-word match.
        {"raw egg", {4, 5, 6}},
        {"raw egg ", {4, 5}},
        {"egg whole raw", {4}},
        {"fresh white egg", {5}},
        {"eggs", {4, 5, 11}},
        {"egg whole", {4, 11}},
        {"ban", {1, 2, 3}},
        {"peach", {7}},
        {"cheeses cottage", {8}},
        {"kelloggs", {10}},
        {"kellogg's flakes", {10}},
        {"corn kellogg", {10}},
        // Every word must be found; a word that only starts a longer one counts only last.
        {"egg fre raw", {}},
        {"xyz", {}},
        {"", {}},
        {"  ", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(food::suggestFoods(context, c.text, AllGroupsValue), c.expected) << c.text;
}

TEST(Suggestions, EatenFoodsFirstByHowOftenAndHowRecently)
{
    const food::FoodWordIndex index(smallDatabase());
    struct Case
    {
        const char* what;
        food::FoodHistory history;
        const char* text;
        std::vector<std::int32_t> expected;
    };
    const Case cases[] = {
        {"an eaten food before one never eaten", {{11, {1, Today - 3}}}, "egg", {11, 4, 5, 6}},
        {"often beats once when the dates are near",
         {{5, {3, Today - 7}}, {4, {1, Today}}},
         "egg raw",
         {5, 4}},
        {"recently beats often long ago",
         {{5, {5, Today - 365}}, {4, {1, Today - 1}}},
         "egg raw",
         {4, 5}},
        {"history outranks a better place in the name",
         {{3, {2, Today - 10}}},
         "banana",
         {3, 1, 2}},
        {"a food eaten but not found stays out", {{9, {10, Today}}}, "banana", {1, 2, 3}},
    };
    for (const Case& c : cases) {
        const food::WordSearchContext context{index, NoCustomFoods, c.history, Today};
        EXPECT_EQ(food::suggestFoods(context, c.text, AllGroupsValue), c.expected) << c.what;
    }
}

TEST(Suggestions, GroupCustomFoodsAndLimit)
{
    const food::FoodWordIndex index(smallDatabase());
    const std::vector<model::FoodItem> custom{item(70000, 0, "Banana bread, homemade"),
                                              item(70001, 0, "Raw egg smoothie")};
    const food::WordSearchContext context{index, custom, NoHistory, Today};
    // Custom foods take part whatever the group; on a tie they come before database foods.
    EXPECT_EQ(food::suggestFoods(context, "banana", Fruit), (std::vector<std::int32_t>{1, 70000}));
    // "Raw egg smoothie" holds the words earlier than the eggs do; no word but the last may
    // start a longer one, so "egg" never finds the eggplant here.
    EXPECT_EQ(food::suggestFoods(context, "egg raw", Dairy),
              (std::vector<std::int32_t>{70001, 4, 5}));
    EXPECT_EQ(food::suggestFoods(context, "egg raw", Vegetables),
              (std::vector<std::int32_t>{70001}));
    EXPECT_EQ(food::suggestFoods(context, "e", AllGroupsValue, 3),
              (std::vector<std::int32_t>{6, 4, 5}));

    std::vector<model::FoodItem> many;
    for (int i = 0; i < 25; ++i)
        many.push_back(item(100 + i, Fruit, "Apple, variety " + std::to_string(i)));
    const food::FoodWordIndex manyIndex(many);
    const food::WordSearchContext manyContext{manyIndex, NoCustomFoods, NoHistory, Today};
    const std::vector<std::int32_t> ten = food::suggestFoods(manyContext, "apple", AllGroupsValue);
    EXPECT_EQ(ten, (std::vector<std::int32_t>{100, 101, 102, 103, 104, 105, 106, 107, 108, 109}));
}

TEST(Suggestions, MoreResultsAfterTheSubstringSearch)
{
    const food::FoodWordIndex index(smallDatabase());
    const std::vector<model::FoodItem> custom{item(70000, 0, "Egg salad, raw")};
    const food::FoodHistory history{{5, {2, Today}}};
    const food::WordSearchContext context{index, custom, history, Today};
    struct Case
    {
        const char* text;
        std::int32_t group;
        std::vector<std::int32_t> listed;
        std::vector<std::int32_t> expected;
    };
    const Case cases[] = {
        // No word is taken as a start of a longer one: "egg" never finds the eggplant.
        {"raw egg", AllGroupsValue, {}, {5, 70000, 4}},
        {"raw egg", Dairy, {}, {5, 70000, 4}},
        {"raw egg", Vegetables, {}, {70000}},
        {"raw egg", Dairy, {5, 70000}, {4}},
        {"egg whole", Dairy, {}, {4, 11}},
        {"bananas", AllGroupsValue, {1, 2}, {3}},
        {"egg", AllGroupsValue, {4, 5, 6, 11, 70000}, {}},
        {"", AllGroupsValue, {}, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(food::moreSearchResults(context, c.text, c.group, c.listed), c.expected)
            << c.text << " in " << c.group;
}

TEST(Suggestions, EatingHistoryFromTheJournal)
{
    const auto at = [](int day) { return model::CalendarDate{2026, 11, day}.toTime(); };
    std::vector<model::JournalDay> days{
        test::dayWithMeal(at(20), 0, {{4, 1.0f}, {5, 0.5f}}),
        test::dayWithMeal(at(2), 2, {{4, 1.0f}, {70000, 2.0f}}),
        test::dayWithMeal(at(12), 3, {{4, 0.5f}}),
    };
    days[1].meals.push_back(days[1].meals.front()); // a second meal holding the same foods
    days.emplace_back();                            // a day without meals
    days.back().date = at(25);

    const food::FoodHistory history = food::eatingHistory(days);
    const long day20 = model::CalendarDate{2026, 11, 20}.dayNumber();
    EXPECT_EQ(history.size(), 3u);
    ASSERT_TRUE(history.contains(4));
    EXPECT_EQ(history.at(4).count, 4);
    EXPECT_EQ(history.at(4).latestDay, day20);
    EXPECT_EQ(history.at(5).count, 1);
    EXPECT_EQ(history.at(70000).count, 2);
    EXPECT_EQ(history.at(70000).latestDay, day20 - 18);

    EXPECT_DOUBLE_EQ(food::historyWeight({4, day20}, day20), 4.0);
    EXPECT_DOUBLE_EQ(food::historyWeight({4, day20}, day20 + 30), 2.0);
    EXPECT_DOUBLE_EQ(food::historyWeight({4, day20}, day20 - 5), 4.0) << "a date after today";
    EXPECT_DOUBLE_EQ(food::historyWeight({0, day20}, day20), 0.0);
}

// What a new user types, on the whole database.
TEST(Suggestions, BuiltDatabase)
{
    if (!std::filesystem::exists(VELMORA_FOODS_DB))
        GTEST_SKIP() << "foods.db has not been built";
    auto loaded = model::FoodDatabase::load(VELMORA_FOODS_DB);
    ASSERT_TRUE(loaded.ok());
    const model::FoodDatabase& db = loaded.value();
    const food::FoodWordIndex index(db.foods());
    const food::WordSearchContext context{index, NoCustomFoods, NoHistory, Today};

    struct Case
    {
        const char* text;
        std::int32_t first;              // 0: any
        std::vector<std::int32_t> among; // in the ten suggestions
    };
    const Case cases[] = {
        {"banana", 9040, {}}, // Bananas, raw
        {"bananas", 9040, {}},
        {"Banana raw", 9040, {}},
        {"egg whole raw", 1123, {1171}},    // Egg, whole, raw, fresh / frozen
        {"raw egg", 0, {1123, 1124, 1125}}, // whole, white, yolk
        {"egg white", 0, {1124, 1172}},
        {"eggs", 0, {1123, 1124}},
        {"whole milk", 0, {1077}}, // Milk, whole, 3.25% milkfat
        {"apples raw", 9003, {}},  // Apples, raw, with skin
    };
    for (const Case& c : cases) {
        const std::vector<std::int32_t> found = food::suggestFoods(context, c.text, AllGroupsValue);
        ASSERT_FALSE(found.empty()) << c.text;
        EXPECT_LE(found.size(), food::SuggestionCount);
        if (c.first != 0) {
            EXPECT_EQ(found.front(), c.first)
                << c.text << ": " << db.findDatabaseFood(found.front())->name;
        }
        for (std::int32_t n : c.among)
            EXPECT_NE(std::find(found.begin(), found.end(), n), found.end()) << c.text << " " << n;
    }
}

} // namespace
