// Custom foods: storing from the grid, saving a meal as one, names and cells.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "food/logic/CustomFoods.h"
#include "model/Store.h"

using namespace velmora;

namespace {

// A catalogue of five stored nutrients and two database foods.
model::Store smallStore()
{
    model::Store store;
    store.foods.setCatalogue({{203, "g", "Protein"},
                              {204, "g", "Total lipid (fat)"},
                              {205, "g", "Carbohydrate, by difference"},
                              {208, "kcal", "Energy"},
                              {291, "g", "Fiber, total dietary"}});
    store.foods.catalogue().appendComputed();

    model::FoodItem oats;
    oats.number = 8120;
    oats.name = "Cereals, oats, regular, cooked";
    oats.values[0] = 2.54f;
    oats.values[1] = 1.52f;
    oats.values[2] = 12.0f;
    oats.values[3] = 71.0f;
    oats.values[4] = 1.7f;
    oats.measures = {{234.0f, "cup"}};
    store.foods.addFood(oats);

    model::FoodItem milk;
    milk.number = 1077;
    milk.name = "Milk, whole";
    milk.values[0] = 3.15f;
    milk.values[1] = 3.25f;
    milk.values[2] = 4.8f;
    milk.values[3] = 61.0f;
    store.foods.addFood(milk);
    return store;
}

model::Meal mealOf(std::vector<model::FoodEntry> entries)
{
    model::Meal meal;
    meal.entries = std::move(entries);
    return meal;
}

} // namespace

TEST(SaveMealAsCustomFood, OneFoodOf150GramsScalesItsValues)
{
    model::Store store = smallStore();
    const model::FoodItem& oats = *store.foods.findDatabaseFood(8120);

    const int pos = food::saveMealAsCustomFood(store, mealOf({{8120, 1.5f}}), "Porridge");

    ASSERT_EQ(pos, 0);
    const model::FoodItem& custom = store.shared.customFoods[0];
    EXPECT_EQ(custom.number, 70000);
    EXPECT_EQ(store.shared.counters.values[model::IdCounters::CustomFood], 70001);
    EXPECT_EQ(custom.name, "Porridge");
    EXPECT_FLOAT_EQ(custom.servingWeight, 150.0f);
    for (int i = 0; i < 5; ++i)
        EXPECT_NEAR(custom.valueAt(i), 1.5 * oats.valueAt(i), 1e-4) << "nutrient " << i;
    EXPECT_TRUE(custom.measures.empty());
}

TEST(SaveMealAsCustomFood, SumsEveryEntryIncludingCustomServings)
{
    model::Store store = smallStore();
    // A custom food of 50 g per serving with 10 kcal per serving, eaten twice, plus 200 g of milk.
    food::storeCustomFood(store, "Jam", 50.0f, std::vector<float>{0.0f, 0.0f, 2.0f, 10.0f, 0.0f});
    const std::int32_t jam = store.shared.customFoods[0].number;

    const int pos =
        food::saveMealAsCustomFood(store, mealOf({{jam, 2.0f}, {1077, 2.0f}, {99999, 1.0f}}), "x");

    ASSERT_EQ(pos, 1);
    const model::FoodItem& custom = store.shared.customFoods[1];
    EXPECT_EQ(custom.name, "X");
    EXPECT_FLOAT_EQ(custom.servingWeight, 2 * 50.0f + 200.0f);
    EXPECT_NEAR(custom.valueAt(3), 2 * 10.0 + 2 * 61.0, 1e-4); // energy
    EXPECT_NEAR(custom.valueAt(2), 2 * 2.0 + 2 * 4.8, 1e-4);   // carbohydrate
    EXPECT_NEAR(custom.valueAt(0), 2 * 3.15, 1e-4);            // protein: milk only
}

TEST(SaveMealAsCustomFood, BlankNameMakesNothingAndSameNameTwiceMakesTwo)
{
    model::Store store = smallStore();
    const auto meal = mealOf({{8120, 1.0f}});

    EXPECT_EQ(food::saveMealAsCustomFood(store, meal, "   \t "), -1);
    EXPECT_TRUE(store.shared.customFoods.empty());
    EXPECT_EQ(store.shared.counters.values[model::IdCounters::CustomFood], 70000);

    EXPECT_EQ(food::saveMealAsCustomFood(store, meal, "  apple pie  "), 0);
    EXPECT_EQ(food::saveMealAsCustomFood(store, meal, "apple pie"), 1);
    ASSERT_EQ(store.shared.customFoods.size(), 2u);
    EXPECT_EQ(store.shared.customFoods[0].name, "Apple pie");
    EXPECT_EQ(store.shared.customFoods[1].name, "Apple pie");
    EXPECT_NE(store.shared.customFoods[0].number, store.shared.customFoods[1].number);
}

TEST(CustomFoodName, TrimsAndCapitalisesTheFirstLetter)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"  apple pie  ", "Apple pie"},
        {"\tbanana bread", "Banana bread"},
        {"Already Upper", "Already Upper"},
        {"3 bean salad", "3 bean salad"},
        {"\xE9"
         "clair",
         "\xC9"
         "clair"}, // Windows-1252 e acute
        {"   ", ""},
        {"", ""},
    };
    for (const auto& [typed, stored] : cases)
        EXPECT_EQ(food::customFoodName(typed), stored) << "typed \"" << typed << "\"";
}

TEST(CustomFoodCells, EmptyOrNonNumericCellsReadAsZero)
{
    const std::vector<std::pair<std::string, float>> cases{
        {"", 0.0f},    {"   ", 0.0f}, {"abc", 0.0f},   {"12abc", 0.0f},
        {"1,5", 0.0f}, {"nan", 0.0f}, {"1.5", 1.5f},   {" 2.25 ", 2.25f},
        {"-3", -3.0f}, {"+4", 4.0f},  {"1e2", 100.0f}, {"0.1", 0.1f},
    };
    for (const auto& [cell, value] : cases)
        EXPECT_FLOAT_EQ(food::cellValue(cell), value) << "cell \"" << cell << "\"";
}

TEST(StoreCustomFood, SameNameOverwritesOtherNameAppends)
{
    model::Store store = smallStore();
    const std::vector<std::string> first{"100", "1", "2", "3", "40", "5"};
    ASSERT_EQ(food::storeCustomFoodCells(store, " soup ", first), 0);
    const std::int32_t soupNumber = store.shared.customFoods[0].number;

    // The typed name is normalised before the lookup, so "soup" finds "Soup" again.
    const std::vector<std::string> second{"250", "oops", "", "3.5"};
    ASSERT_EQ(food::storeCustomFoodCells(store, "soup", second), 0);
    ASSERT_EQ(store.shared.customFoods.size(), 1u);
    const model::FoodItem& soup = store.shared.customFoods[0];
    EXPECT_EQ(soup.number, soupNumber);
    EXPECT_FLOAT_EQ(soup.servingWeight, 250.0f);
    EXPECT_FLOAT_EQ(soup.valueAt(0), 0.0f); // "oops"
    EXPECT_FLOAT_EQ(soup.valueAt(1), 0.0f); // empty
    EXPECT_FLOAT_EQ(soup.valueAt(2), 3.5f);
    EXPECT_FLOAT_EQ(soup.valueAt(3), 0.0f); // no cell at all: the old 40 does not survive
    EXPECT_FLOAT_EQ(soup.valueAt(4), 0.0f);

    // Names match case-sensitively: "SOUP" is another food.
    ASSERT_EQ(food::storeCustomFoodCells(store, "SOUP", first), 1);
    EXPECT_EQ(store.shared.customFoods[1].number, soupNumber + 1);
    EXPECT_EQ(food::storeCustomFoodCells(store, "  ", first), -1);
    EXPECT_EQ(store.shared.customFoods.size(), 2u);
}

TEST(StoreCustomFood, GridTextsRoundTripAndDeleteByExactName)
{
    model::Store store = smallStore();
    food::storeCustomFood(store, "Stew", 312.5f,
                          std::vector<float>{20.25f, 8.0f, 30.0f, 290.0f, 6.0f});
    const auto cells = food::customFoodCells(store, store.shared.customFoods[0]);
    ASSERT_EQ(cells.size(), 6u); // weight and the five stored nutrients
    EXPECT_EQ(cells[0], "312.5");
    EXPECT_EQ(cells[4], "290.0");

    food::storeCustomFoodCells(store, "Stew copy", cells);
    const model::FoodItem& copy = store.shared.customFoods[1];
    EXPECT_FLOAT_EQ(copy.servingWeight, 312.5f);
    EXPECT_NEAR(copy.valueAt(0), 20.25, 0.05);
    EXPECT_FLOAT_EQ(copy.valueAt(3), 290.0f);

    EXPECT_FALSE(food::deleteCustomFood(store, "stew"));
    EXPECT_TRUE(food::deleteCustomFood(store, "Stew"));
    ASSERT_EQ(store.shared.customFoods.size(), 1u);
    EXPECT_EQ(store.shared.customFoods[0].name, "Stew copy");
    // Numbers are never reused.
    food::storeCustomFood(store, "Stew", 1.0f, {});
    EXPECT_EQ(store.shared.customFoods.back().number, 70002);
}
