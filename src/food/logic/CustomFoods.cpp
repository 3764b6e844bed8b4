#include "food/logic/CustomFoods.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "model/FoodDatabase.h"
#include "model/Store.h"
#include "model/UserNames.h"

namespace velmora::food {

std::string customFoodName(std::string_view typed)
{
    return model::capitaliseFirst(model::trimBlanks(typed));
}

float cellValue(std::string_view cell)
{
    const std::string text = model::trimBlanks(cell);
    if (text.empty())
        return 0.0f;
    const char* first = text.data();
    const char* last = text.data() + text.size();
    if (*first == '+')
        ++first;
    double v = 0.0;
    const auto [end, ec] = std::from_chars(first, last, v);
    if (ec != std::errc() || end != last || !std::isfinite(v))
        return 0.0f;
    return static_cast<float>(v);
}

int storedNutrientCount(const model::Store& store)
{
    return static_cast<int>(
        std::min<std::size_t>(store.foods.catalogue().fileCount(), model::StoredNutrientCount));
}

int findCustomFoodByName(const model::Store& store, std::string_view name)
{
    const auto& list = store.shared.customFoods;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].name == name)
            return static_cast<int>(i);
    return -1;
}

namespace {

void fillValues(model::FoodItem& food, int count, std::span<const float> values)
{
    food.values.fill(0.0f);
    for (int i = 0; i < count && i < static_cast<int>(values.size()); ++i)
        food.values[static_cast<std::size_t>(i)] = values[static_cast<std::size_t>(i)];
}

model::FoodItem& appendNewCustomFood(model::Store& store, std::string name)
{
    model::FoodItem food;
    food.number = store.shared.counters.take(model::IdCounters::CustomFood);
    food.name = std::move(name);
    store.shared.customFoods.push_back(std::move(food));
    return store.shared.customFoods.back();
}

} // namespace

int storeCustomFood(model::Store& store, std::string_view typedName, float weight,
                    std::span<const float> values)
{
    std::string name = customFoodName(typedName);
    if (name.empty())
        return -1;
    int pos = findCustomFoodByName(store, name);
    if (pos < 0) {
        appendNewCustomFood(store, std::move(name));
        pos = static_cast<int>(store.shared.customFoods.size()) - 1;
    }
    model::FoodItem& food = store.shared.customFoods[static_cast<std::size_t>(pos)];
    food.servingWeight = weight;
    fillValues(food, storedNutrientCount(store), values);
    return pos;
}

int storeCustomFoodCells(model::Store& store, std::string_view typedName,
                         std::span<const std::string> cells)
{
    const float weight = cells.empty() ? 0.0f : cellValue(cells[0]);
    std::vector<float> values;
    for (std::size_t i = 1; i < cells.size(); ++i)
        values.push_back(cellValue(cells[i]));
    return storeCustomFood(store, typedName, weight, values);
}

std::vector<std::string> customFoodCells(const model::Store& store, const model::FoodItem& food)
{
    std::vector<std::string> cells;
    const int count = storedNutrientCount(store);
    cells.reserve(static_cast<std::size_t>(count) + 1);
    cells.push_back(model::formatText("%.1f", static_cast<double>(food.servingWeight)));
    for (int i = 0; i < count; ++i)
        cells.push_back(model::formatText("%.1f", static_cast<double>(food.valueAt(i))));
    return cells;
}

int saveMealAsCustomFood(model::Store& store, const model::Meal& meal, std::string_view typedName)
{
    std::string name = customFoodName(typedName);
    if (name.empty())
        return -1;
    const auto& entries = store.foods.catalogue().entries();
    const int count = storedNutrientCount(store);
    std::vector<float> values(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        values[static_cast<std::size_t>(i)] =
            static_cast<float>(store.value(meal, entries[static_cast<std::size_t>(i)].number));
    const float weight = static_cast<float>(store.value(meal, model::nutrient::Amount));

    model::FoodItem& food = appendNewCustomFood(store, std::move(name));
    food.servingWeight = weight;
    fillValues(food, count, values);
    return static_cast<int>(store.shared.customFoods.size()) - 1;
}

bool deleteCustomFood(model::Store& store, std::string_view name)
{
    const int pos = findCustomFoodByName(store, name);
    if (pos < 0)
        return false;
    store.shared.customFoods.erase(store.shared.customFoods.begin() + pos);
    return true;
}

} // namespace velmora::food
