#include "sync/logic/TandryConversion.h"

#include <algorithm>
#include <cmath>

#include "sync/logic/JournalTransfer.h"

namespace velmora::sync {

namespace {

std::ptrdiff_t goalPosition(const model::User& user, model::NutrientId n)
{
    const auto it = std::find(user.goalNutrients.begin(), user.goalNutrients.end(), n);
    return it == user.goalNutrients.end() ? -1 : it - user.goalNutrients.begin();
}

model::JournalDay keptNotesOnly(const model::JournalDay& day)
{
    model::JournalDay kept;
    kept.date = day.date;
    kept.notes = day.notes;
    kept.notes[DietNote].clear();
    return kept;
}

} // namespace

std::uint16_t toTenths(float value)
{
    const float tenths = value * 10.0f;
    if (!std::isfinite(tenths))
        return 0;
    double whole = std::fmod(std::trunc(static_cast<double>(tenths)), 65536.0);
    if (whole < 0.0)
        whole += 65536.0;
    return static_cast<std::uint16_t>(whole);
}

model::TandryFood exportFood(const model::FoodItem& food, const model::NutrientCatalogue& catalogue)
{
    model::TandryFood out;
    out.id = static_cast<std::uint32_t>(food.number);
    out.name = food.name;
    out.setStored(0, toTenths(food.servingWeight));
    for (int index = 1; index < model::TandryValueCount; ++index) {
        const model::NutrientId n = model::TandryValueNutrients[static_cast<std::size_t>(index)];
        if (n == 0)
            continue;
        out.setStored(index, toTenths(food.valueAt(catalogue.indexOf(n))));
    }
    return out;
}

model::FoodItem importFood(const model::TandryFood& food, const model::NutrientCatalogue& catalogue)
{
    model::FoodItem out;
    out.number = static_cast<std::int32_t>(food.id);
    out.name = food.name;
    for (int index = 1; index < model::TandryValueCount; ++index) {
        const model::NutrientId n = model::TandryValueNutrients[static_cast<std::size_t>(index)];
        const int position = n == 0 ? -1 : catalogue.indexOf(n);
        if (position >= 0 && position < model::StoredNutrientCount)
            out.values[static_cast<std::size_t>(position)] = static_cast<float>(food.value(index));
    }
    out.servingWeight = static_cast<float>(food.value(0));
    for (const model::TandryMeasure& m : food.measures)
        out.measures.push_back(model::FoodMeasure{static_cast<float>(m.amount * 0.1), m.text});
    return out;
}

bool hasGoals(const model::User& user)
{
    return !user.goalNutrients.empty() && user.goalsSet();
}

void importGoals(const model::TandryProfile& profile, model::User& user)
{
    if (!hasGoals(user))
        return;
    for (std::size_t k = 0; k < model::TandryGoalNutrients.size(); ++k) {
        const std::ptrdiff_t i = goalPosition(user, model::TandryGoalNutrients[k]);
        if (i >= 0)
            user.goalValues[static_cast<std::size_t>(i)] = static_cast<float>(profile.goals[k]);
    }
}

void exportGoals(const model::User& user, model::TandryProfile& profile)
{
    if (!hasGoals(user))
        return;
    for (std::size_t k = 0; k < model::TandryGoalNutrients.size(); ++k) {
        const std::ptrdiff_t i = goalPosition(user, model::TandryGoalNutrients[k]);
        if (i >= 0)
            profile.goals[k] = static_cast<double>(user.goalValues[static_cast<std::size_t>(i)]);
    }
}

void importTandry(const model::TandryShared& handheld, const model::TandryUser& user,
                  const model::NutrientCatalogue& catalogue, model::SharedData& shared,
                  model::UserJournal& journal)
{
    for (std::size_t i = 0; i < handheld.counters.size(); ++i)
        shared.counters.values[i] = static_cast<std::int32_t>(handheld.counters[i]);
    if (!handheld.foods.empty()) {
        shared.customFoods.clear();
        for (const model::TandryFood& f : handheld.foods)
            shared.customFoods.push_back(importFood(f, catalogue));
    }
    importDefinitions(handheld.definitions, shared);
    raiseCountersAboveIds(shared);

    std::vector<model::TimeT> dates;
    for (const model::TandryDay& d : user.days)
        dates.push_back(d.date);
    const std::vector<std::ptrdiff_t> match = matchDays(journal.days, dates);
    std::vector<bool> replaced(journal.days.size(), false);
    std::vector<model::JournalDay> days;
    days.reserve(user.days.size());
    for (std::size_t k = 0; k < user.days.size(); ++k) {
        const model::TandryDay& from = user.days[k];
        model::JournalDay day;
        if (match[k] >= 0) {
            const auto m = static_cast<std::size_t>(match[k]);
            replaced[m] = true;
            day = keptNotesOnly(journal.days[m]);
        }
        day.date = oneInTheMorning(from.date);
        day.health = from.values;
        day.meals = from.meals;
        day.workouts = from.workouts;
        day.notes[DietNote] = from.note;
        days.push_back(std::move(day));
    }
    for (std::size_t i = 0; i < journal.days.size(); ++i) {
        if (replaced[i])
            continue;
        model::JournalDay kept = keptNotesOnly(journal.days[i]);
        if (!kept.isEmpty())
            days.push_back(std::move(kept));
    }
    journal.days = std::move(days);
    importGoals(user.profile, journal.user);
}

void exportTandry(const model::SharedData& shared, const model::UserJournal& journal,
                  const model::NutrientCatalogue& catalogue, model::TandryShared& handheld,
                  model::TandryUser& user)
{
    for (std::size_t i = 0; i < handheld.counters.size(); ++i)
        handheld.counters[i] = static_cast<std::uint32_t>(shared.counters.values[i]);
    handheld.foods.clear();
    for (const model::FoodItem& f : shared.customFoods)
        handheld.foods.push_back(exportFood(f, catalogue));
    handheld.definitions = exportDefinitions(shared);
    user.days.clear();
    for (const model::JournalDay& d : journal.days)
        user.days.push_back(
            model::TandryDay{d.date, d.health, d.meals, d.workouts, d.notes[DietNote]});
    exportGoals(journal.user, user.profile);
}

} // namespace velmora::sync
