#include "model/EatenNutrients.h"

#include "model/Store.h"

namespace velmora::model {

double eatenValue(const Store& store, const FoodEntry& entry, NutrientId n)
{
    const FoodItem* food = store.findFood(entry.food);
    return food ? entryValue(store.foods.catalogue(), *food, entry.amount, n) : 0.0;
}

std::vector<ResolvedEntry> resolveEntries(const Store& store, const Meal& meal)
{
    std::vector<ResolvedEntry> out;
    out.reserve(meal.entries.size());
    for (const FoodEntry& e : meal.entries)
        if (const FoodItem* food = store.findFood(e.food))
            out.push_back(ResolvedEntry{food, e.amount});
    return out;
}

std::vector<ResolvedEntry> resolveEntries(const Store& store, const JournalDay& day)
{
    std::vector<ResolvedEntry> out;
    for (const Meal& m : day.meals)
        for (const FoodEntry& e : m.entries)
            if (const FoodItem* food = store.findFood(e.food))
                out.push_back(ResolvedEntry{food, e.amount});
    return out;
}

double eatenValue(const Store& store, const Meal& meal, NutrientId n)
{
    return groupValue(store.foods.catalogue(), resolveEntries(store, meal), n);
}

double eatenValue(const Store& store, const JournalDay& day, NutrientId n)
{
    return groupValue(store.foods.catalogue(), resolveEntries(store, day), n);
}

std::string entryServingText(const Store& store, const FoodEntry& entry)
{
    const FoodItem* food = store.findFood(entry.food);
    return food ? servingText(*food, entry.amount) : std::string();
}

} // namespace velmora::model
