#include "food/logic/JournalRows.h"

#include "model/JournalEdits.h"

#include <algorithm>
#include <numeric>

#include "model/DateText.h"
#include "model/FoodDatabase.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/UserDatabase.h"

namespace velmora::food {

namespace {

constexpr model::TimeT SecondsPerDay = 86400;

std::string entryLabel(const model::FoodItem& food, float amount)
{
    const std::string name = model::cp1252ToUtf8(food.name);
    if (food.isCustom())
        return model::formatText("%.2lf x %s", static_cast<double>(amount), name.c_str());
    const std::string serving = model::cp1252ToUtf8(model::servingText(food, amount));
    if (serving.empty())
        return name;
    return model::formatText("%s - %s", serving.c_str(), name.c_str());
}

std::string mealLabel(const model::Meal& meal)
{
    if (meal.kind < model::MealNames.size())
        return model::MealNames[meal.kind];
    return model::formatText("Meal %d", meal.kind + 1);
}

template <typename Group>
std::vector<double> columnValues(const model::Store& store, const Group& group,
                                 const std::vector<model::NutrientId>& columns)
{
    std::vector<double> values;
    values.reserve(columns.size());
    for (model::NutrientId n : columns)
        values.push_back(store.value(group, n));
    return values;
}

} // namespace

std::vector<model::NutrientId> activeColumns(const model::User& user)
{
    std::vector<model::NutrientId> columns;
    for (model::NutrientId n : user.listColumns) {
        if (n == -1)
            break;
        columns.push_back(n);
    }
    return columns;
}

std::vector<std::size_t> listedDays(const model::UserJournal& journal, model::TimeT now)
{
    const int limit = journal.user.daysInLists;
    std::vector<std::size_t> days;
    for (std::size_t i = 0; i < journal.days.size(); ++i) {
        const model::TimeT age = (now - journal.days[i].date) / SecondsPerDay;
        if (limit <= 0 || age <= limit)
            days.push_back(i);
    }
    std::stable_sort(days.begin(), days.end(), [&](std::size_t a, std::size_t b) {
        return journal.days[a].date > journal.days[b].date;
    });
    return days;
}

std::vector<JournalRow> buildJournalRows(const model::Store& store, model::TimeT now)
{
    const auto columns = activeColumns(store.journal.user);
    std::vector<JournalRow> rows;
    for (std::size_t d : listedDays(store.journal, now)) {
        const model::JournalDay& day = store.journal.days[d];
        std::vector<int> meals(day.meals.size());
        std::iota(meals.begin(), meals.end(), 0);
        std::stable_sort(meals.begin(), meals.end(), [&](int a, int b) {
            return day.meals[static_cast<std::size_t>(a)].kind <
                   day.meals[static_cast<std::size_t>(b)].kind;
        });

        std::vector<JournalRow> dayRows;
        for (int m : meals) {
            const model::Meal& meal = day.meals[static_cast<std::size_t>(m)];
            std::vector<JournalRow> foodRows;
            for (std::size_t e = 0; e < meal.entries.size(); ++e) {
                const model::FoodEntry& entry = meal.entries[e];
                const model::FoodItem* food = store.findFood(entry.food);
                if (food == nullptr)
                    continue;
                foodRows.push_back({RowLevel::Food,
                                    entryLabel(*food, entry.amount),
                                    columnValues(store, entry, columns),
                                    {d, m, static_cast<int>(e)}});
            }
            if (foodRows.empty())
                continue;
            dayRows.push_back(
                {RowLevel::Meal, mealLabel(meal), columnValues(store, meal, columns), {d, m, -1}});
            std::move(foodRows.begin(), foodRows.end(), std::back_inserter(dayRows));
        }
        if (dayRows.empty())
            continue;
        rows.push_back({RowLevel::Day,
                        model::longDateText(day.date),
                        columnValues(store, day, columns),
                        {d, -1, -1}});
        std::move(dayRows.begin(), dayRows.end(), std::back_inserter(rows));
    }
    return rows;
}

std::string columnValueText(double value)
{
    return model::formatText("%.1lf", value);
}

bool deleteJournalItem(model::UserJournal& journal, const JournalRowRef& ref)
{
    if (ref.meal < 0)
        return model::removeMeals(journal, ref.day);
    const auto meal = static_cast<std::size_t>(ref.meal);
    if (ref.entry < 0)
        return model::removeMeal(journal, ref.day, meal);
    return model::removeEntry(journal, ref.day, meal, static_cast<std::size_t>(ref.entry));
}

} // namespace velmora::food
