// The bar chart's numbers: values by series and category, and the value axis's round steps.

#include <gtest/gtest.h>

#include "charts/data/BarValues.h"

using namespace velmora::charts;

TEST(BarValues, CategoriesAreAddedOnFirstUseAndValuesDefaultToZero)
{
    BarValues v;
    EXPECT_TRUE(v.isEmpty());
    const int food = v.addSeries("Food");
    EXPECT_EQ(v.setValue(food, "Lysine", 51.0), 0);
    const int ideal = v.addSeries("Ideal"); // a series added later covers the known categories
    EXPECT_EQ(v.setValue(ideal, "Leucine", 66.0), 1);
    EXPECT_EQ(v.setValue(food, "Leucine", 12.5), 1); // known category: same index
    EXPECT_EQ(v.setValue(7, "Valine", 3.0), 2);      // no such series: only the category is added
    EXPECT_EQ(v.categories(), (std::vector<std::string>{"Lysine", "Leucine", "Valine"}));
    EXPECT_FALSE(v.isEmpty());
    EXPECT_EQ(v.value(food, 0), 51.0);
    EXPECT_EQ(v.value(food, 1), 12.5);
    EXPECT_EQ(v.value(ideal, 0), 0.0);
    EXPECT_EQ(v.value(ideal, 2), 0.0);
    EXPECT_EQ(v.value(2, 0), 0.0);
    EXPECT_EQ(v.value(food, -1), 0.0);
    EXPECT_EQ(v.maximum(), 66.0);
    v.clear();
    EXPECT_EQ(v.seriesCount(), 0);
    EXPECT_EQ(v.categoryCount(), 0);
}

TEST(BarValues, AxisRunsInRoundStepsToTheFirstStepAboveTheMaximum)
{
    struct Case
    {
        double maximum;
        BarAxis expected;
    };
    const Case cases[] = {
        {0.0, {1, 1}},      {-4.0, {1, 1}},     {5.0, {1, 5}},
        {5.5, {2, 6}},      {66.0, {20, 80}},   {100.0, {20, 100}},
        {101.0, {50, 150}}, {250.0, {50, 250}}, {999.0, {200, 1000}},
    };
    for (const Case& c : cases) {
        const BarAxis axis = barAxis(c.maximum);
        EXPECT_DOUBLE_EQ(axis.step, c.expected.step) << c.maximum;
        EXPECT_DOUBLE_EQ(axis.top, c.expected.top) << c.maximum;
    }
}
