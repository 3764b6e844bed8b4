#include "food/logic/CustomFoods.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "model/FoodDatabase.h"
#include "model/Store.h"
#include "model/UserNames.h"

namespace velmora::food {

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

bool cellNeedsNotice(std::string_view cell)
{
    const std::string text = model::trimBlanks(cell);
    if (text.empty())
        return false;
    const float v = cellValue(text);
    // A cell that reads as 0 only because it is not a number: "0", "0.0" and "-0" are numbers.
    if (v == 0.0f) {
        const char* first = text.data() + (text.front() == '+' ? 1 : 0);
        double parsed = 0.0;
        const auto [end, ec] = std::from_chars(first, text.data() + text.size(), parsed);
        return ec != std::errc() || end != text.data() + text.size();
    }
    return v < 0.0f;
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
    if (customFoodName(typedName).empty())
        return -1;
    const std::string name(typedName);
    const auto& entries = store.foods.catalogue().entries();
    const int count = storedNutrientCount(store);
    std::vector<float> values(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        values[static_cast<std::size_t>(i)] =
            static_cast<float>(store.value(meal, entries[static_cast<std::size_t>(i)].number));
    const float weight = static_cast<float>(store.value(meal, model::nutrient::Amount));

    return model::appendCustomFood(store, name, weight, values);
}

} // namespace velmora::food
