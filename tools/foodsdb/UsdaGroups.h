#pragma once

#include <span>
#include <string_view>

namespace velmora::foodsdb {

// A USDA food group: the code as an integer (0100 -> 100) and its name.
struct UsdaGroup
{
    int number;
    std::string_view name;
};

// Group of the foods whose number does not start with a USDA group code.
inline constexpr int OtherGroupNumber = 9900;
inline constexpr std::string_view OtherGroupName = "Other";

// The standard SR food groups, ascending by code.
std::span<const UsdaGroup> usdaGroups();

// Name of a USDA group code, empty when the code is not one.
std::string_view usdaGroupName(int number);

// Group of a food from the first two digits of its five-digit number: 1123 -> 100,
// 20081 -> 2000. OtherGroupNumber when those digits are not a USDA code.
int groupFromFoodNumber(int foodNumber);

} // namespace velmora::foodsdb
