// Height edits, BMI and the number edits of the health page.

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

#include "fitness/logic/HealthValues.h"

using namespace velmora::fitness;

TEST(HealthValues, HeightEditsFromStoredHeight)
{
    struct Case
    {
        float stored;
        bool metric;
        float first;
        const char* secondText; // the inch edit as shown
    };
    const Case cases[] = {
        {70.0f, false, 5.0f, "10"}, {70.5f, false, 5.0f, "10.5"}, {71.99f, false, 5.0f, "11.99"},
        {72.0f, false, 6.0f, "0"},  {144.0f, false, 12.0f, "0"},  {11.5f, false, 0.0f, "11.5"},
        {0.0f, false, 0.0f, "0"},   {175.0f, true, 175.0f, "0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.stored);
        const HeightFields f = heightFields(c.stored, c.metric);
        EXPECT_EQ(f.first, c.first);
        EXPECT_EQ(valueEditText(f.second), c.secondText);
        // What the page shows stores back as the same height.
        const auto inches = parseNumber(valueEditText(f.second));
        ASSERT_TRUE(inches);
        EXPECT_FLOAT_EQ(storedHeight({f.first, static_cast<float>(*inches)}, c.metric), c.stored);
    }
}

TEST(HealthValues, BodyMassIndex)
{
    struct Case
    {
        float weight;
        HeightFields height;
        bool metric;
        std::optional<double> bmi;
        const char* text;
    };
    const Case cases[] = {
        {150.0f, {5.0f, 10.0f}, false, 150.0 / 4900.0 * 705.0, "21.6"},
        {150.0f, {0.0f, 70.0f}, false, 150.0 / 4900.0 * 705.0, "21.6"}, // all in the inch edit
        {70.0f, {175.0f, 0.0f}, true, 70.0 / (1.75 * 1.75), "22.9"},
        {150.0f, {0.0f, 0.0f}, false, std::nullopt, ""},
        {70.0f, {0.0f, 0.0f}, true, std::nullopt, ""},
        {150.0f, {-1.0f, 0.5f}, false, std::nullopt, ""},
        {150.0f, {NAN, 10.0f}, false, std::nullopt, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const auto bmi = bodyMassIndex(c.weight, c.height, c.metric);
        ASSERT_EQ(bmi.has_value(), c.bmi.has_value());
        if (bmi) {
            EXPECT_NEAR(*bmi, *c.bmi, 1e-9);
            EXPECT_EQ(bmiText(*bmi), c.text);
        }
    }
}

TEST(HealthValues, NumberEdits)
{
    struct Case
    {
        const char* text;
        std::optional<double> number;
    };
    const Case cases[] = {
        {"12.5", 12.5}, {" 7 ", 7.0},    {"", 0.0},     {"   ", 0.0},  {"-3", -3.0},   {"+2", 2.0},
        {".5", 0.5},    {"1e3", 1000.0}, {"abc", {}},   {"1,5", {}},   {"12.5kg", {}}, {"+-2", {}},
        {"inf", {}},    {"nan", {}},     {"1.2.3", {}}, {"1e999", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(parseNumber(c.text), c.number);
    }

    EXPECT_EQ(parseWholeNumber(" 30 "), 30);
    EXPECT_EQ(parseWholeNumber(""), 0);
    EXPECT_EQ(parseWholeNumber("-2"), -2);
    EXPECT_EQ(parseWholeNumber("2.5"), std::nullopt);
    EXPECT_EQ(parseWholeNumber("99999999999"), std::nullopt);
}
