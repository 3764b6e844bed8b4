#include "food/logic/MealEditing.h"

#include <algorithm>
#include <cmath>

#include "model/FoodDatabase.h"
#include "model/Nutrition.h"
#include "model/Store.h"
#include "model/User.h"
#include "model/UserDatabase.h"

namespace velmora::food {

const std::array<const char*, 3> PieSliceLabels{"Protein", "Carboyhydrates", "Fat"};
const std::array<model::NutrientId, 3> PieSliceNutrients{
    model::nutrient::PercentProtein, model::nutrient::PercentCarb, model::nutrient::PercentFat};

double clampAmount(double amount)
{
    if (!std::isfinite(amount) || amount < AmountFloor)
        return AmountFloor;
    return std::min(amount, AmountMaximum);
}

double measureFactor(const model::FoodItem& food, int measureIndex)
{
    if (measureIndex < 0 || measureIndex >= static_cast<int>(food.measures.size()))
        return 1.0;
    return food.measures[static_cast<std::size_t>(measureIndex)].grams * 0.01;
}

std::string mealRowText(const model::FoodItem& food, float amount)
{
    if (food.isCustom())
        return model::formatText("%.2lf x %s", static_cast<double>(amount), food.name.c_str());
    const std::string serving = model::servingText(food, amount);
    if (serving.empty())
        return food.name;
    return model::formatText("%s - %s", serving.c_str(), food.name.c_str());
}

std::vector<MealRow> mealRows(const model::Store& store, const model::Meal& meal)
{
    std::vector<MealRow> rows;
    for (std::size_t i = 0; i < meal.entries.size(); ++i) {
        const model::FoodEntry& e = meal.entries[i];
        if (const model::FoodItem* food = store.findFood(e.food))
            rows.push_back({i, e.food, mealRowText(*food, e.amount)});
    }
    return rows;
}

std::vector<NutrientRow> detailsRows(const model::NutrientCatalogue& catalogue,
                                     const model::FoodItem& food, double amount,
                                     const std::vector<model::NutrientId>& list)
{
    std::vector<NutrientRow> rows;
    rows.reserve(list.size());
    for (model::NutrientId n : list) {
        const model::NutrientDef* def = catalogue.find(n);
        if (!def)
            continue;
        const double v = model::entryValue(catalogue, food, static_cast<float>(amount), n);
        rows.push_back({def->name, model::formatText("%.1f", v)});
    }
    return rows;
}

PieMode pieModeFromSetting(std::int32_t value)
{
    if (value < 0 || value > 3)
        return PieMode::Meal;
    return static_cast<PieMode>(value);
}

EnergyShares foodShares(const model::NutrientCatalogue& catalogue, const model::FoodItem& food)
{
    using namespace model::nutrient;
    return {model::foodValue(catalogue, food, PercentFat),
            model::foodValue(catalogue, food, PercentCarb),
            model::foodValue(catalogue, food, PercentProtein)};
}

namespace {
EnergyShares groupShares(const model::Store& store, const std::vector<model::ResolvedEntry>& group)
{
    using namespace model::nutrient;
    const model::NutrientCatalogue& c = store.foods.catalogue();
    return {model::groupValue(c, group, PercentFat), model::groupValue(c, group, PercentCarb),
            model::groupValue(c, group, PercentProtein)};
}
} // namespace

EnergyShares mealShares(const model::Store& store, const model::Meal* meal)
{
    if (!meal)
        return {};
    return groupShares(store, store.resolve(*meal));
}

EnergyShares dayShares(const model::Store& store, const model::JournalDay* day)
{
    if (!day)
        return {};
    return groupShares(store, store.resolve(*day));
}

EnergyShares goalShares(const model::User& user)
{
    EnergyShares s;
    if (!user.goalsSet())
        return s;
    for (std::size_t i = 0; i < user.goalNutrients.size(); ++i) {
        const double v = user.goalValues[i];
        switch (user.goalNutrients[i]) {
        case model::nutrient::PercentFat:
            s.fat = v;
            break;
        case model::nutrient::PercentCarb:
            s.carbohydrate = v;
            break;
        case model::nutrient::PercentProtein:
            s.protein = v;
            break;
        default:
            break;
        }
    }
    return s;
}

std::array<double, 3> pieSlicePercents(const EnergyShares& shares)
{
    const double sum = shares.fat + shares.carbohydrate + shares.protein;
    if (sum == 0 || !std::isfinite(sum))
        return {0, 0, 0};
    return {shares.protein / sum * 100.0, shares.carbohydrate / sum * 100.0,
            shares.fat / sum * 100.0};
}

model::TimeT mealTimeOn(const model::CalendarDate& date, int hour, int minute)
{
    return date.toTime() + static_cast<model::TimeT>(hour) * 3600 + minute * 60;
}

} // namespace velmora::food
