#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/FoodItem.h"

namespace velmora::model {
class FoodDatabase;
struct User;
class Store;
} // namespace velmora::model

namespace velmora::food {

// The item value of " <All Groups>" in the food group picker: a search over every group.
inline constexpr std::int32_t AllGroupsValue = 1;
inline constexpr const char* AllGroupsText = " <All Groups>";

// The three lists of the food page's left half, in the order the user record stores them.
enum class FoodListMode
{
    Custom = 0,
    Recent = 1,
    All = 2
};

// One byte of a Windows-1252 text upper-cased (ASCII and the accented letters).
char upperCp1252(char c);
// The search text as a search uses it: blanks trimmed from both ends, upper-cased.
std::string searchKey(std::string_view text);
// True when the upper-cased name contains key (key already passed through searchKey). An empty
// key is contained in every name.
bool nameContains(std::string_view name, std::string_view key);

// The foods a search lists, as food numbers: first every custom food whose name contains the
// text, whatever the group; then every database food whose name contains it and whose group is
// group (any group for AllGroupsValue), in database order.
std::vector<std::int32_t> searchFoods(const model::FoodDatabase& foods,
                                      const std::vector<model::FoodItem>& customFoods,
                                      std::string_view text, std::int32_t group);

// One entry of the food group picker.
struct GroupChoice
{
    std::string name; // Windows-1252 bytes
    std::int32_t value;
};
// " <All Groups>" and the database's groups by name (byte-wise), the release marker left out.
std::vector<GroupChoice> groupChoices(const model::FoodDatabase& foods);

// The Custom Foods list: every custom food in the order of the custom-food list.
std::vector<std::int32_t> customFoodList(const std::vector<model::FoodItem>& customFoods);
// The Recent Foods list: the recent numbers that still name a food, in the recent list's order,
// at most the user's recent-foods count of them.
std::vector<std::int32_t> recentFoodList(const model::Store& store, const model::User& user);

} // namespace velmora::food
