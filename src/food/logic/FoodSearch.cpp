#include "food/logic/FoodSearch.h"

#include <algorithm>

#include "model/FoodDatabase.h"
#include "model/Store.h"
#include "model/User.h"
#include "model/UserNames.h"

namespace velmora::food {

char upperCp1252(char c)
{
    const auto b = static_cast<unsigned char>(c);
    if (b >= 'a' && b <= 'z')
        return static_cast<char>(b - 0x20);
    if (b >= 0xE0 && b <= 0xFE && b != 0xF7)
        return static_cast<char>(b - 0x20);
    switch (b) {
    case 0x9A:
        return static_cast<char>(0x8A);
    case 0x9C:
        return static_cast<char>(0x8C);
    case 0x9E:
        return static_cast<char>(0x8E);
    case 0xFF:
        return static_cast<char>(0x9F);
    default:
        return c;
    }
}

std::string searchKey(std::string_view text)
{
    std::string key = model::trimBlanks(text);
    std::transform(key.begin(), key.end(), key.begin(), upperCp1252);
    return key;
}

bool nameContains(std::string_view name, std::string_view key)
{
    if (key.empty())
        return true;
    // Compares in place instead of upper-casing a copy of every name.
    return std::search(name.begin(), name.end(), key.begin(), key.end(),
                       [](char n, char k) { return upperCp1252(n) == k; }) != name.end();
}

std::vector<std::int32_t> searchFoods(const model::FoodDatabase& foods,
                                      const std::vector<model::FoodItem>& customFoods,
                                      std::string_view text, std::int32_t group)
{
    const std::string key = searchKey(text);
    std::vector<std::int32_t> found;
    for (const model::FoodItem& f : customFoods)
        if (nameContains(f.name, key))
            found.push_back(f.number);
    const bool anyGroup = group == AllGroupsValue;
    for (const model::FoodItem& f : foods.foods())
        if ((anyGroup || f.group == group) && nameContains(f.name, key))
            found.push_back(f.number);
    return found;
}

std::vector<GroupChoice> groupChoices(const model::FoodDatabase& foods)
{
    std::vector<GroupChoice> choices;
    choices.push_back({AllGroupsText, AllGroupsValue});
    for (const model::FoodGroup& g : foods.groups())
        if (!model::FoodDatabase::isSourceGroup(g))
            choices.push_back({g.name, g.number});
    std::stable_sort(
        choices.begin(), choices.end(), [](const GroupChoice& a, const GroupChoice& b) {
            return std::lexicographical_compare(
                a.name.begin(), a.name.end(), b.name.begin(), b.name.end(), [](char x, char y) {
                    return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
                });
        });
    return choices;
}

std::vector<std::int32_t> customFoodList(const std::vector<model::FoodItem>& customFoods)
{
    std::vector<std::int32_t> list;
    list.reserve(customFoods.size());
    for (const model::FoodItem& f : customFoods)
        list.push_back(f.number);
    return list;
}

std::vector<std::int32_t> recentFoodList(const model::Store& store, const model::User& user)
{
    const auto limit = static_cast<std::size_t>(std::max(0, user.recentFoodsCount));
    std::vector<std::int32_t> list;
    for (std::int32_t number : user.recentFoodList()) {
        if (list.size() >= limit)
            break;
        if (store.findFood(number))
            list.push_back(number);
    }
    return list;
}

} // namespace velmora::food
