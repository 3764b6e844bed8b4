// "Calculate Diet" and "Accept Diet" in both unit systems.

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "analysis/logic/DietGoals.h"
#include "analysis/logic/DietPlanner.h"
#include "model/FoodDatabase.h"

using namespace velmora;
using analysis::DietDifficulty;
using analysis::PlanOutcome;

namespace {

const std::string EasyImperial = "This is an easy diet.  Weight change is under 1 pound per week.";
const std::string PossibleImperial =
    "This diet is possible for most people, but can be challenging.  Weight change should be from "
    "1 to 2 pounds per week.";
const std::string CrashImperial =
    "This is a 'crash diet', and is likely to change your bodyfat ratio for the worse.  Weight "
    "change is greater than 2 pounds per week.  This is NOT recommended.";
const std::string EasyMetric = "This is an easy diet.  Weight change is less than 0.5 kg per week.";
const std::string PossibleMetric =
    "This diet is possible for most people, but can be challenging.  Weight change should be from "
    "0.5 to 1 kg per week.";
const std::string CrashMetric =
    "This is a 'crash diet', and is likely to change your bodyfat ratio for the worse.  Weight "
    "change is greater than 1 kg per week.  This is NOT recommended.";

model::CalendarDate daysAfter(model::CalendarDate d, int days)
{
    const model::TimeT t = d.toTime() + static_cast<model::TimeT>(days) * 86400 + 12 * 3600;
    return model::CalendarDate::fromTime(t);
}

} // namespace

TEST(DietPlanner, DailyChangeDifficultyAndTexts)
{
    const model::CalendarDate start{2026, 1, 5};
    struct Case
    {
        float from;
        float to;
        int days;
        bool metric;
        int dailyChange;
        DietDifficulty difficulty;
        const std::string& difficultyText;
    };
    const Case cases[] = {
        // 10 lb in 70 days: 35000 kcal, 500 a day, still easy.
        {150.0f, 140.0f, 70, false, 500, DietDifficulty::Easy, EasyImperial},
        // 10 lb in 69 days: 507.2 truncated; a gain gives the same change as a loss.
        {150.0f, 140.0f, 69, false, 507, DietDifficulty::Possible, PossibleImperial},
        {140.0f, 150.0f, 69, false, 507, DietDifficulty::Possible, PossibleImperial},
        {150.5f, 155.5f, 17, false, 1029, DietDifficulty::Crash, CrashImperial},
        // 1 kg in 7 days: 3500 x 2.2046 = 7716.1 kcal, 1102 a day.
        {80.0f, 79.0f, 7, true, 1102, DietDifficulty::Crash, CrashMetric},
        {80.0f, 78.0f, 28, true, 551, DietDifficulty::Possible, PossibleMetric},
        {60.0f, 61.0f, 31, true, 248, DietDifficulty::Easy, EasyMetric},
        // 1000 a day is still "possible".
        {100.0f, 90.0f, 35, false, 1000, DietDifficulty::Possible, PossibleImperial},
    };
    for (const Case& c : cases) {
        const auto r =
            analysis::calculateDiet({start, daysAfter(start, c.days), c.from, c.to, c.metric});
        const std::string planText = model::formatText(
            "You wish to diet from %.1f to %.1f %s in %d days.\nThis requires a daily change of %d "
            "calories.",
            c.from, c.to, c.metric ? "kg" : "pounds", c.days, c.dailyChange);
        SCOPED_TRACE(planText);
        EXPECT_EQ(r.outcome, PlanOutcome::Planned);
        EXPECT_EQ(r.days, c.days);
        EXPECT_EQ(r.dailyChange, c.dailyChange);
        EXPECT_EQ(r.difficulty, c.difficulty);
        EXPECT_EQ(r.planText, planText);
        EXPECT_EQ(r.difficultyText, c.difficultyText);
    }
}

TEST(DietPlanner, EqualWeightsAreSilentAndTheEndMustFollowTheStart)
{
    const model::CalendarDate start{2026, 3, 20};
    const std::tuple<model::CalendarDate, float, PlanOutcome> cases[] = {
        {{2026, 4, 20}, 150.0f, PlanOutcome::Unchanged},
        {start, 150.0f, PlanOutcome::Unchanged}, // equal weights win over wrong dates
        {start, 140.0f, PlanOutcome::EndNotAfterStart},
        {{2026, 3, 19}, 140.0f, PlanOutcome::EndNotAfterStart},
        {{2026, 3, 21}, 140.0f, PlanOutcome::Planned},
    };
    for (const auto& [end, endWeight, outcome] : cases) {
        const auto r = analysis::calculateDiet({start, end, 150.0f, endWeight, false});
        EXPECT_EQ(r.outcome, outcome) << end.day << " " << endWeight;
        if (r.outcome != PlanOutcome::Planned) {
            EXPECT_TRUE(r.planText.empty() && r.difficultyText.empty());
        }
    }
}

TEST(DietPlanner, AcceptStoresASignedDailyChange)
{
    const std::tuple<model::CalendarDate, float, float, float> cases[] = {
        {{2026, 3, 16}, 140.0f, 150.0f, 500.0f}, // a gain: eat more
        {{2026, 3, 16}, 150.0f, 140.0f, -500.0f},
        {{2026, 1, 5}, 150.0f, 140.0f, 0.0f}}; // nothing computed
    for (const auto& [end, from, to, dailyChange] : cases) {
        analysis::DietGoals goals;
        goals.dailyChange = 123.0f;
        analysis::acceptDiet(goals, {{2026, 1, 5}, end, from, to, false});
        EXPECT_EQ(goals.dailyChange, dailyChange) << from << " to " << to;
        EXPECT_EQ(goals.plan.endWeight, to);
    }
}
