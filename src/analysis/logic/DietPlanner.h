#pragma once

#include <string>

#include "model/DateText.h"

namespace velmora::analysis {

struct DietGoals;

// The texts the "Diet Planner" shows before "Calculate Diet" and when the dates are wrong.
extern const char* const PlanPromptText;   // "Press the calculate button to determine ..."
extern const char* const PlanBadDatesText; // "The end date must be later than the start date."

// The four values of the planner's controls. Weights are in the user's unit.
struct DietPlanInput
{
    model::CalendarDate start;
    model::CalendarDate end;
    float startWeight = 0.0f;
    float endWeight = 0.0f;
    bool metric = false;
};

enum class PlanOutcome
{
    Unchanged,        // equal weights: nothing is computed and the texts stay as they are
    EndNotAfterStart, // the message PlanBadDatesText is shown; the texts stay as they are
    Planned,          // days, dailyChange and both texts are set
};

enum class DietDifficulty
{
    Easy,     // up to 500 kcal a day
    Possible, // 501 to 1000
    Crash,    // over 1000
};

struct DietPlanResult
{
    PlanOutcome outcome = PlanOutcome::Unchanged;
    int days = 0;        // whole days from start to end
    int dailyChange = 0; // kcal a day, never negative
    DietDifficulty difficulty = DietDifficulty::Easy;
    std::string planText;       // UTF-8
    std::string difficultyText; // UTF-8
};

// "Calculate Diet": the daily change of energy intake that moves the weight from the start weight
// to the end weight between the two dates, at 3500 kcal per pound (a kilogram counts as 2.2046
// pounds), truncated to whole kcal, and how hard that is. Equal weights compute nothing; an end
// date that is not later than the start date is refused.
DietPlanResult calculateDiet(const DietPlanInput& input);

// "Accept Diet": stores the four values into the goals, the dates as local midnight, and the daily
// change that calculateDiet() gives them, negative for a loss (0 when it computes nothing).
void acceptDiet(DietGoals& goals, const DietPlanInput& input);

} // namespace velmora::analysis
