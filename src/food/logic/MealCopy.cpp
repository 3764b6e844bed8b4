#include "food/logic/MealCopy.h"

#include <iterator>

#include "food/logic/MealEditing.h"

namespace velmora::food {

const model::JournalDay* defaultCopySource(const std::vector<model::JournalDay>& days,
                                           const model::CalendarDate& date, int kind)
{
    const model::JournalDay* best = nullptr;
    model::CalendarDate bestDate;
    for (const model::JournalDay& d : days) {
        const model::CalendarDate when = model::CalendarDate::fromTime(d.date);
        if (!(when < date))
            continue;
        const model::Meal* meal = d.findMeal(kind);
        if (!meal || meal->entries.empty())
            continue;
        if (!best || bestDate < when) {
            best = &d;
            bestDate = when;
        }
    }
    return best;
}

const model::JournalDay* latestDayWithFoods(const std::vector<model::JournalDay>& days,
                                            const model::CalendarDate& date)
{
    const model::JournalDay* best = nullptr;
    model::CalendarDate bestDate;
    for (const model::JournalDay& d : days) {
        const model::CalendarDate when = model::CalendarDate::fromTime(d.date);
        if (!(when < date) || (best && !(bestDate < when)))
            continue;
        for (const model::Meal& meal : d.meals) {
            if (!meal.entries.empty()) {
                best = &d;
                bestDate = when;
                break;
            }
        }
    }
    return best;
}

int defaultMealMinutes(const std::vector<model::JournalDay>& days, const model::CalendarDate& date,
                       int kind)
{
    if (const model::JournalDay* day = defaultCopySource(days, date, kind)) {
        const model::TimeT offset = day->findMeal(kind)->time - day->date;
        if (offset >= 0 && offset < 24 * 3600)
            return static_cast<int>(offset / 60);
    }
    static constexpr int Usual[] = {8 * 60,       10 * 60 + 30, 12 * 60 + 30,
                                    18 * 60 + 30, 15 * 60 + 30, 21 * 60};
    return kind >= 0 && kind < static_cast<int>(std::size(Usual)) ? Usual[kind] : 12 * 60;
}

int copyMealEntries(const model::Meal& from, model::Meal& to)
{
    // A copy of the source first: from and to may be the same meal.
    const std::vector<model::FoodEntry> entries = from.entries;
    for (const model::FoodEntry& e : entries)
        addToMeal(to, e.food, e.amount);
    return static_cast<int>(entries.size());
}

} // namespace velmora::food
