#include "model/JournalEdits.h"

#include <algorithm>

namespace velmora::model {

JournalDay* findDay(UserJournal& journal, const CalendarDate& date)
{
    for (JournalDay& d : journal.days)
        if (CalendarDate::fromTime(d.date) == date)
            return &d;
    return nullptr;
}

const JournalDay* findDay(const UserJournal& journal, const CalendarDate& date)
{
    return findDay(const_cast<UserJournal&>(journal), date);
}

JournalDay& dayForEditing(UserJournal& journal, const CalendarDate& date)
{
    if (JournalDay* day = findDay(journal, date))
        return *day;
    JournalDay fresh;
    fresh.date = date.toTime();
    journal.days.push_back(std::move(fresh));
    return journal.days.back();
}

Meal& mealForAdding(UserJournal& journal, const CalendarDate& date, int kind, TimeT mealTime)
{
    JournalDay& day = dayForEditing(journal, date);
    if (Meal* meal = day.findMeal(kind))
        return *meal;
    Meal meal;
    meal.kind = static_cast<std::uint8_t>(kind);
    meal.time = mealTime;
    day.meals.push_back(std::move(meal));
    return day.meals.back();
}

void addToMeal(Meal& meal, std::int32_t food, float amount)
{
    for (FoodEntry& e : meal.entries) {
        if (e.food == food) {
            e.amount += amount;
            return;
        }
    }
    meal.entries.push_back({food, amount});
}

int copyDayMeals(UserJournal& journal, const CalendarDate& from, const CalendarDate& to)
{
    const JournalDay* source = findDay(journal, from);
    if (!source || from == to)
        return 0;
    // A copy first: creating the target day may move the source day in memory.
    const std::vector<Meal> meals = source->meals;
    int copied = 0;
    for (const Meal& meal : meals) {
        if (meal.entries.empty())
            continue;
        const TimeT timeOfDay = meal.time - CalendarDate::fromTime(meal.time).toTime();
        Meal& target = mealForAdding(journal, to, meal.kind, to.toTime() + timeOfDay);
        for (const FoodEntry& e : meal.entries)
            addToMeal(target, e.food, e.amount);
        copied += static_cast<int>(meal.entries.size());
    }
    return copied;
}

bool setMealTime(UserJournal& journal, const CalendarDate& date, int kind, TimeT time)
{
    JournalDay* day = findDay(journal, date);
    Meal* meal = day ? day->findMeal(kind) : nullptr;
    if (!meal)
        return false;
    meal->time = time;
    return true;
}

void dropDayIfEmpty(UserJournal& journal, std::size_t day)
{
    if (day < journal.days.size() && journal.days[day].isEmpty())
        journal.days.erase(journal.days.begin() + static_cast<std::ptrdiff_t>(day));
}

bool removeMeal(UserJournal& journal, std::size_t day, std::size_t meal)
{
    if (day >= journal.days.size() || meal >= journal.days[day].meals.size())
        return false;
    std::vector<Meal>& meals = journal.days[day].meals;
    meals.erase(meals.begin() + static_cast<std::ptrdiff_t>(meal));
    dropDayIfEmpty(journal, day);
    return true;
}

bool removeEntry(UserJournal& journal, std::size_t day, std::size_t meal, std::size_t entry)
{
    if (day >= journal.days.size() || meal >= journal.days[day].meals.size())
        return false;
    std::vector<FoodEntry>& entries = journal.days[day].meals[meal].entries;
    if (entry >= entries.size())
        return false;
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(entry));
    if (entries.empty())
        removeMeal(journal, day, meal);
    return true;
}

bool removeMealEntry(UserJournal& journal, const CalendarDate& date, int kind, std::size_t entry)
{
    const JournalDay* day = findDay(journal, date);
    const Meal* meal = day ? day->findMeal(kind) : nullptr;
    if (!meal)
        return false;
    return removeEntry(journal, static_cast<std::size_t>(day - journal.days.data()),
                       static_cast<std::size_t>(meal - day->meals.data()), entry);
}

bool removeMeals(UserJournal& journal, std::size_t day)
{
    if (day >= journal.days.size())
        return false;
    journal.days[day].meals.clear();
    dropDayIfEmpty(journal, day);
    return true;
}

} // namespace velmora::model
