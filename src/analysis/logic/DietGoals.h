#pragma once

#include <string>
#include <vector>

#include "analysis/logic/EnergyNeed.h"
#include "model/Archive.h"
#include "model/Nutrients.h"

namespace velmora::model {
class FoodDatabase;
class NutrientCatalogue;
struct User;
} // namespace velmora::model

namespace velmora::analysis {

// The diet plan of the "Diet Planner": weights in the user's unit.
struct DietPlan
{
    model::TimeT start = 0;
    model::TimeT end = 0;
    float startWeight = 0.0f;
    float endWeight = 0.0f;
};

// The user's diet goals as the "Diet Goals" dialog edits them: a working copy of the User record's
// fields, so that "Cancel" leaves the record as it was and "OK" stores it whole.
struct DietGoals
{
    Profile profile;
    bool changeWeight = false; // "I wish to change my weight"
    float dailyChange = 0.0f;  // the plan's change of energy intake, kcal a day, negative to lose
    DietPlan plan;
    std::vector<model::NutrientId> goalNutrients;
    std::vector<float> goalValues; // a count unlike goalNutrients' means "goals never set"

    bool goalsSet() const { return goalValues.size() == goalNutrients.size(); }
};

// Reads the diet goals from the user's record (metric from the user's unit setting).
DietGoals dietGoalsOf(const model::User& user);

// "OK": stores every value into the record, with the life-stage group worked out from the
// profile. The unit setting is not the dialog's to change and is left as it is.
void storeDietGoals(model::User& user, const DietGoals& goals);

// Choosing a gender: the life-stage variable applies to women only, so "Male" resets it to "None".
void chooseGender(Profile& profile, std::uint8_t gender);
inline bool lifeStageChoosable(const Profile& profile)
{
    return profile.gender == Female;
}

// Height as the dialog shows it: imperial as feet (height / 12) and inches (height mod 12), metric
// as centimetres in `feet` with inches 0 (the inches box is hidden).
struct HeightBoxes
{
    int feet = 0;
    int inches = 0;
};
HeightBoxes heightBoxes(std::int32_t height, bool metric);
// Whole inches (feet x 12 + inches), or the centimetres as entered.
std::int32_t heightFromBoxes(const HeightBoxes& boxes, bool metric);

// The grid's "Field" column: each goal nutrient's name (UTF-8; empty for numbers the catalogue
// does not know).
std::vector<std::string> goalNames(const model::NutrientCatalogue& catalogue,
                                   const std::vector<model::NutrientId>& goalNutrients);

// The grid's "Value" column as the dialog opens: each goal "%.1f"; every cell empty while the
// goals have never been set.
std::vector<std::string> goalCells(const DietGoals& goals);

// The goal values of the grid's cells on "OK", one per goal nutrient: each cell read as a number;
// an empty cell or one that is not a number gives 0.
std::vector<float> goalValuesFromCells(const std::vector<std::string>& cells);

// "Estimate >>": the grid's cells after the estimate, one per goal nutrient, from the cells as they
// stand. Energy is the energy need (plus the daily change when changing weight), protein, fat,
// carbohydrate and fibre are shares of the energy need, the three energy shares are "30", "60" and
// "10", 306, 307 and 601 have fixed goals, and every other nutrient takes the recommended intake
// of its life-stage group (40 times the value for 324). A nutrient without an intake record, or
// whose intake is 0, keeps its cell. All numbers "%.1f". Nothing is stored.
std::vector<std::string> estimateGoalCells(const DietGoals& goals, const model::FoodDatabase& foods,
                                           std::vector<std::string> cells);

// The measured energy need taken as the goal: the cells of energy and of the goals the estimate
// derives from energy (protein, fat, carbohydrate, fibre), filled as the estimate fills them but
// from `energy` (kcal a day) instead of the formula's need; every other cell keeps what it holds.
std::vector<std::string> energyGoalCells(const DietGoals& goals, double energy,
                                         std::vector<std::string> cells);

} // namespace velmora::analysis
