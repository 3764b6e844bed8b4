// The measure list of a food with grams and ounces, and the journal amount of a count of a
// measure.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "food/logic/MealEditing.h"
#include "food/logic/MeasureChoices.h"
#include "model/FoodItem.h"

using namespace velmora;

namespace {

model::FoodItem foodWith(std::int32_t number, std::vector<model::FoodMeasure> measures)
{
    model::FoodItem f;
    f.number = number;
    f.name = "Food";
    f.measures = std::move(measures);
    return f;
}

TEST(MeasureChoices, OwnMeasuresThenWeightsInTheUsersUnitsFirst)
{
    const model::FoodItem egg = foodWith(1123, {{50.0f, "large"}, {243.0f, "cup"}});
    const model::FoodItem steak = foodWith(23001, {{28.35f, "oz"}, {453.6f, "lb"}});
    const model::FoodItem plain = foodWith(9999, {});
    model::FoodItem custom = foodWith(70000, {});
    custom.servingWeight = 120.0f;

    struct Case
    {
        const char* what;
        const model::FoodItem& food;
        bool metric;
        std::vector<std::string> descriptions;
        std::vector<double> grams;
    };
    const Case cases[] = {
        {"metric", egg, true, {"large", "cup", "g", "oz"}, {50, 243, 1, 28.349523125}},
        {"imperial", egg, false, {"large", "cup", "oz", "g"}, {50, 243, 28.349523125, 1}},
        {"the food's own ounce gives way",
         steak,
         true,
         {"lb", "g", "oz"},
         {453.6, 1, 28.349523125}},
        {"no measures of its own", plain, false, {"oz", "g"}, {28.349523125, 1}},
        {"custom foods are counted in servings", custom, true, {}, {}},
    };
    for (const Case& c : cases) {
        const std::vector<food::MeasureChoice> list = food::measureChoices(c.food, c.metric);
        std::vector<std::string> descriptions;
        std::vector<double> grams;
        for (const food::MeasureChoice& m : list) {
            descriptions.push_back(m.description);
            grams.push_back(m.grams);
            EXPECT_EQ(m.maximum, m.isWeight ? 1000.0 : food::AmountMaximum) << c.what;
        }
        EXPECT_EQ(descriptions, c.descriptions) << c.what;
        ASSERT_EQ(grams.size(), c.grams.size()) << c.what;
        for (std::size_t i = 0; i < grams.size(); ++i)
            EXPECT_NEAR(grams[i], c.grams[i], 1e-5) << c.what << " " << descriptions[i];
    }
}

// The entry amount is in units of 100 g, whatever the measure.
TEST(MeasureChoices, EntryAmountInUnitsOf100Grams)
{
    const model::FoodItem egg = foodWith(1123, {{50.0f, "large"}});
    const std::vector<food::MeasureChoice> list = food::measureChoices(egg, true);
    ASSERT_EQ(list.size(), 3u);
    const food::MeasureChoice& large = list[0];
    const food::MeasureChoice& gram = list[1];
    const food::MeasureChoice& ounce = list[2];

    struct Case
    {
        const food::MeasureChoice& measure;
        double count;
        double expected;
    };
    const Case cases[] = {
        {gram, 150, 1.5},
        {gram, 1000, 10.0},
        {gram, 1500, 10.0},        // the box stops at 1000
        {gram, 0.1, 0.0025},       // and never goes below 0.25
        {ounce, 1, 0.28349523125}, // 28.349523125 g
        {ounce, 16, 4.5359237},    // a pound
        {ounce, 1000, 283.49523125},
        {large, 2, 1.0},
        {large, 150, 50.0}, // household measures keep the maximum of 100
        {large, std::numeric_limits<double>::quiet_NaN(), 0.125},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(food::entryAmountFor(c.measure, c.count), c.expected, 1e-9)
            << c.measure.description << " x " << c.count;
}

} // namespace
