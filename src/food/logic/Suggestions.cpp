#include "food/logic/Suggestions.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "food/logic/FoodSearch.h"
#include "model/DateText.h"

namespace velmora::food {

namespace {

// One found food with the keys it is ranked by.
struct Ranked
{
    std::int32_t number;
    double weight;
    int prefixMatches;
    int positionSum;
    std::size_t nameLength;
    std::size_t order; // custom foods first, then database order
};

bool rankedBefore(const Ranked& a, const Ranked& b)
{
    if (a.weight != b.weight)
        return a.weight > b.weight;
    if (a.prefixMatches != b.prefixMatches)
        return a.prefixMatches < b.prefixMatches;
    if (a.positionSum != b.positionSum)
        return a.positionSum < b.positionSum;
    if (a.nameLength != b.nameLength)
        return a.nameLength < b.nameLength;
    return a.order < b.order;
}

double weightOf(const FoodHistory& history, std::int32_t number, long today)
{
    const auto it = history.find(number);
    return it == history.end() ? 0.0 : historyWeight(it->second, today);
}

// Every custom and database food that the words find, with its ranking keys.
std::vector<Ranked> findRanked(const WordSearchContext& context, std::string_view text,
                               bool lastIsPrefix, std::int32_t group,
                               const std::unordered_set<std::int32_t>& skip)
{
    std::vector<Ranked> found;
    const std::vector<std::string> words = searchWords(text);
    if (words.empty())
        return found;

    const FoodWordIndex custom(context.customFoods);
    const auto collect = [&](const FoodWordIndex& index, std::vector<WordMatch> matches,
                             std::size_t orderBase) {
        for (const WordMatch& m : matches) {
            const std::int32_t number = index.number(m.food);
            if (skip.contains(number))
                continue;
            found.push_back({number, weightOf(context.history, number, context.today),
                             m.prefixMatches, m.positionSum, index.nameLength(m.food),
                             orderBase + m.food});
        }
    };
    collect(custom, custom.find(words, lastIsPrefix, 0, true), 0);
    collect(context.database,
            context.database.find(words, lastIsPrefix, group, group == AllGroupsValue),
            custom.size());
    return found;
}

std::vector<std::int32_t> numbersOf(const std::vector<Ranked>& ranked, std::size_t count)
{
    std::vector<std::int32_t> numbers;
    numbers.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        numbers.push_back(ranked[i].number);
    return numbers;
}

} // namespace

FoodHistory eatingHistory(const std::vector<model::JournalDay>& days)
{
    FoodHistory history;
    for (const model::JournalDay& day : days) {
        bool dated = false;
        long dayNumber = 0;
        for (const model::Meal& meal : day.meals) {
            for (const model::FoodEntry& e : meal.entries) {
                if (!dated) {
                    dayNumber = model::CalendarDate::fromTime(day.date).dayNumber();
                    dated = true;
                }
                FoodUse& use = history[e.food];
                use.latestDay = use.count == 0 ? dayNumber : std::max(use.latestDay, dayNumber);
                ++use.count;
            }
        }
    }
    return history;
}

double historyWeight(const FoodUse& use, long today)
{
    if (use.count <= 0)
        return 0.0;
    const double age = static_cast<double>(std::max(0L, today - use.latestDay));
    return use.count * std::exp2(-age / HistoryHalfLifeDays);
}

std::vector<std::int32_t> suggestFoods(const WordSearchContext& context, std::string_view text,
                                       std::int32_t group, std::size_t limit)
{
    const bool typing = !text.empty() && text.back() != ' ' && text.back() != '\t';
    std::vector<Ranked> found = findRanked(context, text, typing, group, {});
    const std::size_t count = std::min(limit, found.size());
    std::partial_sort(found.begin(), found.begin() + static_cast<long>(count), found.end(),
                      rankedBefore);
    return numbersOf(found, count);
}

std::vector<std::int32_t> moreSearchResults(const WordSearchContext& context, std::string_view text,
                                            std::int32_t group,
                                            const std::vector<std::int32_t>& listed)
{
    const std::unordered_set<std::int32_t> skip(listed.begin(), listed.end());
    std::vector<Ranked> found = findRanked(context, text, false, group, skip);
    std::sort(found.begin(), found.end(), rankedBefore);
    return numbersOf(found, found.size());
}

} // namespace velmora::food
