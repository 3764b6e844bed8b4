// Life-stage groups and the daily energy need, worked by hand from the formulas.

#include <gtest/gtest.h>

#include <tuple>

#include "analysis/logic/EnergyNeed.h"
#include "model/FoodDatabase.h"

using namespace velmora;
using analysis::Female;
using analysis::Male;

TEST(EnergyNeed, LifeStageGroupBounds)
{
    const std::tuple<float, std::uint8_t, std::uint8_t, int> cases[] = {
        {0.5f, Male, 0, 0},
        {0.6f, Female, 0, 1},
        {3.0f, Male, 0, 2},
        {8.0f, Female, 3, 3},
        // Infants and children share groups whatever the life-stage variable says.
        {5.0f, Female, 1, 3},
        {13.0f, Male, 0, 4},
        {13.5f, Male, 0, 5},
        {18.0f, Male, 0, 5},
        {18.5f, Male, 0, 6},
        {30.0f, Male, 0, 6},
        {30.5f, Male, 0, 7},
        {49.9f, Male, 0, 7},
        {50.0f, Male, 0, 8},
        {70.0f, Male, 0, 9},
        {13.0f, Female, 0, 10},
        {18.0f, Female, 0, 11},
        {30.0f, Female, 0, 12},
        {50.0f, Female, 0, 14},
        {69.9f, Female, 0, 14},
        {70.0f, Female, 0, 15},
        {18.0f, Female, 1, 16},
        {30.0f, Female, 2, 17},
        {31.0f, Female, 2, 18},
        {18.0f, Female, 4, 19},
        {25.0f, Female, 5, 20},
        {40.0f, Female, 4, 21},
        // The third trimester falls in the group of women who are not pregnant.
        {25.0f, Female, 3, 12},
        {45.0f, Female, 3, 13},
        // A man's life-stage variable plays no part.
        {25.0f, Male, 4, 6}};
    for (const auto& [age, gender, variable, group] : cases)
        EXPECT_EQ(analysis::lifeStageGroup(age, gender, variable), group)
            << "age " << age << " gender " << int(gender) << " variable " << int(variable);
}

TEST(EnergyNeed, ChildrenTablesAndAdultFormulas)
{
    using P = analysis::Profile;
    const std::tuple<const char*, P, const char*> cases[] = {
        // kcal as "%.1f"
        {"man of 30, 70 kg, 175 cm, sedentary", P{30.0f, Male, 0, 0, 70.0f, 175, true}, "2434.1"},
        {"man of 40, 154 lb, 69 in, physical labour", P{40.0f, Male, 0, 1, 154.0f, 69, false},
         "2566.7"},
        {"woman of 25 in her 3rd trimester, 60 kg, 165 cm, hard labour",
         P{25.0f, Female, 3, 2, 60.0f, 165, true}, "2867.8"},
        {"boy above 18: the adult formula, elite athlete", P{18.5f, Male, 0, 3, 75.0f, 180, true},
         "3689.2"},
        {"boy of 5", P{5.0f, Male, 0, 3, 20.0f, 110, true}, "1742.0"},
        {"infant boy", P{0.5f, Male, 0, 0, 8.0f, 60, true}, "570.0"},
        {"girl of 16 nursing, first months", P{16.0f, Female, 4, 0, 55.0f, 160, true}, "2698.0"},
        {"girl of 12 in her 2nd trimester", P{12.0f, Female, 2, 0, 45.0f, 150, true}, "2411.0"},
        {"girl above 18 and below 19: the extra alone", P{18.5f, Female, 3, 0, 55.0f, 160, true},
         "452.0"},
        {"girl above 18, not pregnant: nothing", P{18.5f, Female, 0, 0, 55.0f, 160, true}, "0.0"},
    };
    for (const auto& [what, profile, kcal] : cases)
        EXPECT_EQ(model::formatText("%.1f", analysis::energyNeed(profile)), kcal) << what;
}
