#include "analysis/logic/DietGoals.h"

#include "analysis/logic/NumberText.h"
#include "model/FoodDatabase.h"
#include "model/TextCodec.h"
#include "model/User.h"

namespace velmora::analysis {

namespace {

std::string goalText(double value)
{
    return model::formatText("%.1f", value);
}

// The recommended intake of a nutrient for a life-stage group; 0 when the table has none.
double intakeOf(const model::FoodDatabase& foods, model::NutrientId n, int group)
{
    const model::IntakeRecord* record = foods.findIntake(n);
    if (record == nullptr || group < 0 || group >= model::LifeStageGroupCount)
        return 0.0;
    return record->recommended[static_cast<std::size_t>(group)];
}

} // namespace

DietGoals dietGoalsOf(const model::User& user)
{
    DietGoals g;
    g.profile.age = user.age;
    g.profile.gender = user.gender;
    g.profile.lifeStageVariable = user.lifeStageVariable;
    g.profile.activityLevel = user.activityLevel;
    g.profile.weight = user.weight;
    g.profile.height = user.height;
    g.profile.metric = user.isMetric();
    g.changeWeight = user.changeWeight != 0;
    g.dailyChange = user.dailyChange;
    g.plan = DietPlan{user.planStart, user.planEnd, user.planStartWeight, user.planEndWeight};
    g.goalNutrients = user.goalNutrients;
    g.goalValues = user.goalValues;
    return g;
}

void storeDietGoals(model::User& user, const DietGoals& g)
{
    user.age = g.profile.age;
    user.gender = g.profile.gender;
    user.lifeStageVariable = g.profile.lifeStageVariable;
    user.activityLevel = g.profile.activityLevel;
    user.weight = g.profile.weight;
    user.height = g.profile.height;
    user.lifeStageGroup =
        lifeStageGroup(g.profile.age, g.profile.gender, g.profile.lifeStageVariable);
    user.changeWeight = g.changeWeight ? 1 : 0;
    user.dailyChange = g.dailyChange;
    user.planStart = g.plan.start;
    user.planEnd = g.plan.end;
    user.planStartWeight = g.plan.startWeight;
    user.planEndWeight = g.plan.endWeight;
    user.goalNutrients = g.goalNutrients;
    user.goalValues = g.goalValues;
}

void chooseGender(Profile& profile, std::uint8_t gender)
{
    profile.gender = gender;
    if (gender != Female)
        profile.lifeStageVariable = 0;
}

HeightBoxes heightBoxes(std::int32_t height, bool metric)
{
    if (metric)
        return HeightBoxes{height, 0};
    return HeightBoxes{height / 12, height % 12};
}

std::int32_t heightFromBoxes(const HeightBoxes& boxes, bool metric)
{
    return metric ? boxes.feet : boxes.feet * 12 + boxes.inches;
}

std::vector<std::string> goalNames(const model::NutrientCatalogue& catalogue,
                                   const std::vector<model::NutrientId>& goalNutrients)
{
    std::vector<std::string> names;
    names.reserve(goalNutrients.size());
    for (model::NutrientId n : goalNutrients)
        names.push_back(model::cp1252ToUtf8(catalogue.nameOf(n)));
    return names;
}

std::vector<std::string> goalCells(const DietGoals& goals)
{
    std::vector<std::string> cells(goals.goalNutrients.size());
    if (!goals.goalsSet())
        return cells;
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells[i] = goalText(goals.goalValues[i]);
    return cells;
}

std::vector<float> goalValuesFromCells(const std::vector<std::string>& cells)
{
    std::vector<float> values;
    values.reserve(cells.size());
    for (const std::string& cell : cells)
        values.push_back(parseFloatNumber(cell).value_or(0.0f));
    return values;
}

namespace {

// The cell of a goal that follows from the energy need, when id is one: energy itself (plus the
// plan's daily change when changing weight) and the shares of protein, fat, carbohydrate and fibre.
bool energyGoalCell(const DietGoals& goals, model::NutrientId id, double energy, std::string& cell)
{
    namespace n = model::nutrient;
    switch (id) {
    case n::Energy:
        cell = goalText(energy + (goals.changeWeight ? goals.dailyChange : 0.0f));
        return true;
    case n::Protein:
        cell = goalText(energy * 0.1 * 0.25); // 10 % of the energy at 4 kcal/g
        return true;
    case n::Fat:
        cell = goalText(energy * 0.3 * (1.0 / 9.0)); // 30 % at 9 kcal/g
        return true;
    case n::Carbohydrate:
        cell = goalText(energy * 0.6 * 0.25); // 60 % at 4 kcal/g
        return true;
    case n::Fibre:
        cell = goalText(energy * 0.001 * 14.0); // 14 g per 1000 kcal
        return true;
    default:
        return false;
    }
}

} // namespace

std::vector<std::string> estimateGoalCells(const DietGoals& goals, const model::FoodDatabase& foods,
                                           std::vector<std::string> cells)
{
    namespace n = model::nutrient;
    cells.resize(goals.goalNutrients.size());
    const Profile& p = goals.profile;
    const int group = lifeStageGroup(p.age, p.gender, p.lifeStageVariable);
    const double energy = energyNeed(p);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const model::NutrientId id = goals.goalNutrients[i];
        if (energyGoalCell(goals, id, energy, cells[i]))
            continue;
        switch (id) {
        case n::PercentFat:
            cells[i] = model::formatText("%d", 30);
            break;
        case n::PercentCarb:
            cells[i] = model::formatText("%d", 60);
            break;
        case n::PercentProtein:
            cells[i] = model::formatText("%d", 10);
            break;
        case 306: // potassium
            cells[i] = goalText(2000.0);
            break;
        case 307: // sodium
            cells[i] = goalText(500.0);
            break;
        case 601: // cholesterol
            cells[i] = goalText(300.0);
            break;
        default: {
            double intake = intakeOf(foods, id, group);
            if (intake == 0.0)
                break; // no recommendation: the cell keeps what it holds
            if (id ==
                324) // vitamin D: the table gives micrograms, the goal is in IU (40 a microgram)
                intake *= 40.0;
            cells[i] = goalText(intake);
        }
        }
    }
    return cells;
}

std::vector<std::string> energyGoalCells(const DietGoals& goals, double energy,
                                         std::vector<std::string> cells)
{
    cells.resize(goals.goalNutrients.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
        energyGoalCell(goals, goals.goalNutrients[i], energy, cells[i]);
    return cells;
}

} // namespace velmora::analysis
