#include "model/DefinitionEdits.h"

#include <algorithm>

#include "model/Store.h"
#include "model/UserNames.h"

namespace velmora::model {

namespace {

void fillValues(FoodItem& food, int count, std::span<const float> values)
{
    food.values.fill(0.0f);
    for (int i = 0; i < count && i < static_cast<int>(values.size()); ++i)
        food.values[static_cast<std::size_t>(i)] = values[static_cast<std::size_t>(i)];
}

} // namespace

std::string definitionName(std::string_view typed)
{
    return capitaliseFirst(trimBlanks(typed));
}

int storedNutrientCount(const Store& store)
{
    return static_cast<int>(
        std::min<std::size_t>(store.foods.catalogue().fileCount(), StoredNutrientCount));
}

int findCustomFoodByName(const Store& store, std::string_view name)
{
    const auto& list = store.shared.customFoods;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].name == name)
            return static_cast<int>(i);
    return -1;
}

int appendCustomFood(Store& store, std::string_view typedName, float weight,
                     std::span<const float> values)
{
    std::string name = definitionName(typedName);
    if (name.empty())
        return -1;
    FoodItem food;
    food.number = store.shared.counters.take(IdCounters::CustomFood);
    food.name = std::move(name);
    food.servingWeight = weight;
    fillValues(food, storedNutrientCount(store), values);
    store.shared.customFoods.push_back(std::move(food));
    return static_cast<int>(store.shared.customFoods.size()) - 1;
}

int storeCustomFood(Store& store, std::string_view typedName, float weight,
                    std::span<const float> values)
{
    const std::string name = definitionName(typedName);
    if (name.empty())
        return -1;
    const int pos = findCustomFoodByName(store, name);
    if (pos < 0)
        return appendCustomFood(store, name, weight, values);
    FoodItem& food = store.shared.customFoods[static_cast<std::size_t>(pos)];
    food.servingWeight = weight;
    fillValues(food, storedNutrientCount(store), values);
    return pos;
}

bool deleteCustomFood(Store& store, std::string_view name)
{
    const int pos = findCustomFoodByName(store, name);
    if (pos < 0)
        return false;
    store.shared.customFoods.erase(store.shared.customFoods.begin() + pos);
    return true;
}

} // namespace velmora::model
