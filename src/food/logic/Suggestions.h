#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "food/logic/FoodWords.h"
#include "model/Journal.h"

namespace velmora::food {

// How many suggestions the drop-down under the search box shows.
inline constexpr std::size_t SuggestionCount = 10;
// A food eaten this many days ago weighs half as much in the ranking as one eaten today.
inline constexpr double HistoryHalfLifeDays = 30.0;

// What the journal says about one food: how many meal entries hold it and the latest date one
// does, as a day number (model::CalendarDate::dayNumber).
struct FoodUse
{
    int count = 0;
    long latestDay = 0;
};
using FoodHistory = std::unordered_map<std::int32_t, FoodUse>;

// The use of every food in the meals of the journal's days (database and custom foods alike).
FoodHistory eatingHistory(const std::vector<model::JournalDay>& days);

// The weight of a food's use on day today: count x 2^(-age / HistoryHalfLifeDays), the age in
// days since the latest use (0 for a use dated after today). 0 for a food never eaten.
double historyWeight(const FoodUse& use, long today);

// What a word search ranks against: the index of the database's foods (built once per database),
// the user's custom foods and eating history, and the day number of today.
struct WordSearchContext
{
    const FoodWordIndex& database;
    const std::vector<model::FoodItem>& customFoods;
    const FoodHistory& history;
    long today = 0;
};

// The drop-down under the search box: at most `limit` food numbers whose names hold every word of
// text in any order, a plural forgiven; the last word may be the start of a longer word while it
// is being typed (text not ending in a blank). Custom foods take part whatever the group, database
// foods when their group is `group` or group is AllGroupsValue. Ranked by the history weight
// (largest first), then whole words before a word still being typed, then by how early the words
// stand in the name (sum of word positions), then shorter names, then custom foods in their order
// before database foods in database order. No words in text: no suggestions.
std::vector<std::int32_t> suggestFoods(const WordSearchContext& context, std::string_view text,
                                       std::int32_t group, std::size_t limit = SuggestionCount);

// The results listed after those of the substring search (searchFoods): the custom foods and the
// database foods of `group` whose names hold every word of text as a whole word (a plural
// forgiven), ranked as suggestFoods ranks them, leaving out every number in `listed`.
std::vector<std::int32_t> moreSearchResults(const WordSearchContext& context, std::string_view text,
                                            std::int32_t group,
                                            const std::vector<std::int32_t>& listed);

} // namespace velmora::food
