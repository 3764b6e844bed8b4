// The energy need measured from a constructed journal whose true maintenance is known: eaten energy
// and workouts day by day, weigh-ins drifting by what the body stores.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "analysis/logic/DayRange.h"
#include "analysis/logic/DietGoals.h"
#include "analysis/logic/MeasuredEnergy.h"
#include "model/Store.h"
#include "support/Builders.h"

using namespace velmora;

namespace {

constexpr model::CalendarDate Today{2026, 5, 31};
constexpr std::int32_t Food = 1001; // 100 kcal per 100 g

struct Journal
{
    bool metric = false;
    double maintenance = 2400.0;      // the truth the measure should find
    std::function<double(int)> eaten; // kcal eaten n days before today, 0 for no meals
    double burned = 0.0;              // kcal of each logged day's workout
    int weighEvery = 3;               // days between weigh-ins, counted back from today
    int firstWeighIn = 55;            // days before today of the earliest weigh-in
    int lastWeighIn = 0;              // days before today of the latest weigh-in
    double noise = 0.2;               // added and taken in turn from the weigh-ins
};

// The days of the journal from 70 days before today: the weight falls or rises each day by what
// the day's net energy leaves over the maintenance (a day without meals counts as average).
model::Store storeOf(const Journal& j)
{
    model::Store s;
    s.foods.setCatalogue(test::standardCatalogue());
    s.foods.addFood(test::FoodBuilder(test::standardCatalogue(), Food, "Food").value(208, 100.0f));
    s.journal.user.metric = j.metric ? 1 : 0;
    const double perUnit = j.metric ? analysis::KcalPerKilogram : analysis::KcalPerPound;
    double total = 0.0;
    int logged = 0;
    for (int ago = 70; ago >= 0; --ago)
        if (j.eaten(ago) > 0) {
            total += j.eaten(ago) - j.burned;
            ++logged;
        }
    const double average = logged ? total / logged : 0.0;
    double weight = j.metric ? 80.0 : 176.0;
    int turn = 0;
    for (int ago = 70; ago >= 0; --ago) {
        model::JournalDay day;
        day.date = analysis::dateOfDayNumber(Today.dayNumber() - ago).toTime();
        const double kcal = j.eaten(ago);
        if (kcal > 0) {
            day = test::dayWithMeal(day.date, 0, {{Food, static_cast<float>(kcal / 100.0)}});
            if (j.burned > 0) {
                day.workouts.emplace_back();
                day.workouts.back().calories = static_cast<std::int32_t>(j.burned);
            }
        }
        weight += ((kcal > 0 ? kcal - j.burned : average) - j.maintenance) / perUnit;
        if (ago <= j.firstWeighIn && ago >= j.lastWeighIn &&
            (ago - j.lastWeighIn) % j.weighEvery == 0)
            day.health.weight = static_cast<float>(weight + (turn++ % 2 ? -j.noise : j.noise));
        if (!day.isEmpty())
            s.journal.days.push_back(day);
    }
    return s;
}

double alternating(int ago)
{
    return ago % 2 ? 1800.0 : 2200.0;
}

} // namespace

TEST(MeasuredEnergy, ConstructedJournalsWithinOnePercent)
{
    struct Case
    {
        const char* what;
        Journal journal;
        int loggedDays;
        int weighIns;
    };
    // Weigh-ins of the weeks before the eight measured ones settle the smoothed weight; without
    // them the first weigh-in is taken as it stands, so that case weighs without noise.
    const Case cases[] = {
        {"losing, in pounds", {false, 2400.0, alternating}, 56, 19},
        {"gaining, in kilograms",
         {true, 2600.0, [](int) { return 3000.0; }, 0.0, 2, 70, 0, 0.09},
         56,
         28},
        {"steady, net of workouts", {false, 2500.0, [](int) { return 2900.0; }, 400.0, 7}, 56, 8},
        {"five days a week logged",
         {false, 2300.0, [](int ago) { return ago % 7 < 5 ? 1900.0 : 0.0; }},
         40,
         19},
        {"weigh-ins in the last four weeks only",
         {false, 2400.0, alternating, 0.0, 4, 27, 3, 0.0},
         56,
         7},
    };
    for (const Case& c : cases) {
        const model::Store store = storeOf(c.journal);
        const analysis::MeasuredEnergy m = analysis::measuredEnergyNeed(store, Today);
        ASSERT_EQ(m.status, analysis::MeasuredEnergyStatus::Measured) << c.what;
        EXPECT_NEAR(m.maintenance, c.journal.maintenance, 0.01 * c.journal.maintenance) << c.what;
        EXPECT_EQ(m.loggedDays, c.loggedDays) << c.what;
        EXPECT_EQ(m.weighIns, c.weighIns) << c.what;
    }
}

TEST(MeasuredEnergy, TooLittleDataSaysWhy)
{
    using Status = analysis::MeasuredEnergyStatus;
    struct Case
    {
        const char* what;
        Journal journal;
        Status status;
    };
    const Case cases[] = {
        {"13 days with meals",
         {false, 2400, [](int ago) { return ago < 13 ? 2000.0 : 0.0; }},
         Status::TooFewLoggedDays},
        {"meals older than eight weeks do not count",
         {false, 2400, [](int ago) { return ago >= 50 ? 2000.0 : 0.0; }},
         Status::TooFewLoggedDays},
        {"weigh-ins 9 days apart",
         {false, 2400, alternating, 0.0, 3, 9, 0},
         Status::TooFewWeighIns},
        {"one weigh-in", {false, 2400, alternating, 0.0, 3, 2, 2}, Status::TooFewWeighIns},
        {"weigh-ins before the eight weeks only settle",
         {false, 2400, alternating, 0.0, 3, 70, 50},
         Status::TooFewWeighIns},
        {"weigh-ins 10 days apart are enough",
         {false, 2400, alternating, 0.0, 10, 10, 0},
         Status::Measured},
    };
    for (const Case& c : cases)
        EXPECT_EQ(analysis::measuredEnergyNeed(storeOf(c.journal), Today).status, c.status)
            << c.what;

    analysis::MeasuredEnergy m;
    m.status = Status::Measured;
    m.loggedDays = 26;
    m.weighIns = 9;
    m.spanDays = 27;
    EXPECT_EQ(analysis::measuredEnergyBasis(m), "from 26 logged days and 9 weigh-ins over 4 weeks");
    EXPECT_EQ(analysis::planAgainstMeasuredText(2431.4, -500),
              "Against the 2431 kcal a day measured from your journal, this means eating about "
              "1931 kcal a day.");
}

// "Use as Goal" fills energy and what follows from it, as the estimate does, and nothing else.
TEST(MeasuredEnergy, UsedAsTheEnergyGoal)
{
    analysis::DietGoals goals;
    goals.goalNutrients = {208, 203, 204, 205, 291, 301};
    const std::vector<std::string> before{"1", "2", "3", "4", "5", "1000.0"};
    EXPECT_EQ(analysis::energyGoalCells(goals, 2400.0, before),
              (std::vector<std::string>{"2400.0", "60.0", "80.0", "360.0", "33.6", "1000.0"}));
    goals.changeWeight = true;
    goals.dailyChange = -500.0f;
    EXPECT_EQ(analysis::energyGoalCells(goals, 2400.0, before).front(), "1900.0");
}
