#include "analysis/logic/DietPlanner.h"

#include <cmath>
#include <cstdlib>

#include "analysis/logic/DietGoals.h"
#include "model/FoodDatabase.h"

namespace velmora::analysis {

const char* const PlanPromptText =
    "Press the calculate button to determine the details of this diet";
const char* const PlanBadDatesText = "The end date must be later than the start date.";

namespace {

constexpr double KcalPerPound = 3500.0;
constexpr double PoundsPerKilogram = 2.2046;

const char* difficultyText(DietDifficulty d, bool metric)
{
    switch (d) {
    case DietDifficulty::Easy:
        return metric ? "This is an easy diet.  Weight change is less than 0.5 kg per week."
                      : "This is an easy diet.  Weight change is under 1 pound per week.";
    case DietDifficulty::Possible:
        return metric ? "This diet is possible for most people, but can be challenging.  Weight "
                        "change should be from 0.5 to 1 kg per week."
                      : "This diet is possible for most people, but can be challenging.  Weight "
                        "change should be from 1 to 2 pounds per week.";
    case DietDifficulty::Crash:
        break;
    }
    return metric ? "This is a 'crash diet', and is likely to change your bodyfat ratio for the "
                    "worse.  Weight change is greater than 1 kg per week.  This is NOT recommended."
                  : "This is a 'crash diet', and is likely to change your bodyfat ratio for the "
                    "worse.  Weight change is greater than 2 pounds per week.  This is NOT "
                    "recommended.";
}

DietDifficulty difficultyOf(int dailyChange)
{
    if (dailyChange <= 500)
        return DietDifficulty::Easy;
    if (dailyChange <= 1000)
        return DietDifficulty::Possible;
    return DietDifficulty::Crash;
}

} // namespace

DietPlanResult calculateDiet(const DietPlanInput& in)
{
    DietPlanResult r;
    const double change = static_cast<double>(in.endWeight) - static_cast<double>(in.startWeight);
    if (change == 0.0)
        return r;
    // The dates are whole calendar days, so the time between them is a whole number of days even
    // across a change to or from summer time.
    const long days = in.end.dayNumber() - in.start.dayNumber();
    if (days <= 0) {
        r.outcome = PlanOutcome::EndNotAfterStart;
        return r;
    }
    double energy = change * KcalPerPound;
    if (in.metric)
        energy *= PoundsPerKilogram;
    r.outcome = PlanOutcome::Planned;
    r.days = static_cast<int>(days);
    r.dailyChange = std::abs(static_cast<int>(std::trunc(energy / static_cast<double>(days))));
    r.difficulty = difficultyOf(r.dailyChange);
    r.planText = model::formatText(
        in.metric ? "You wish to diet from %.1lf to %.1lf kg in %d days.\nThis requires a daily "
                    "change of %d calories."
                  : "You wish to diet from %.1lf to %.1lf pounds in %d days.\nThis requires a "
                    "daily change of %d calories.",
        static_cast<double>(in.startWeight), static_cast<double>(in.endWeight), r.days,
        r.dailyChange);
    r.difficultyText = difficultyText(r.difficulty, in.metric);
    return r;
}

void acceptDiet(DietGoals& goals, const DietPlanInput& in)
{
    goals.plan.start = in.start.toTime();
    goals.plan.end = in.end.toTime();
    goals.plan.startWeight = in.startWeight;
    goals.plan.endWeight = in.endWeight;
    const DietPlanResult r = calculateDiet(in);
    const bool losing = in.endWeight < in.startWeight;
    goals.dailyChange = r.outcome != PlanOutcome::Planned
                            ? 0.0f
                            : static_cast<float>(losing ? -r.dailyChange : r.dailyChange);
}

} // namespace velmora::analysis
