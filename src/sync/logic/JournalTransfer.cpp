#include "sync/logic/JournalTransfer.h"

#include <algorithm>
#include <ctime>
#include <limits>

#include "model/DateText.h"

namespace velmora::sync {

model::TimeT oneInTheMorning(model::TimeT t)
{
    const model::CalendarDate date = model::CalendarDate::fromTime(t);
    std::tm f{};
    f.tm_year = date.year - 1900;
    f.tm_mon = date.month - 1;
    f.tm_mday = date.day;
    f.tm_hour = 1;
    f.tm_isdst = -1;
    return static_cast<model::TimeT>(std::mktime(&f));
}

std::vector<std::ptrdiff_t> matchDays(const std::vector<model::JournalDay>& desktop,
                                      const std::vector<model::TimeT>& handheld)
{
    std::vector<bool> taken(desktop.size(), false);
    std::vector<std::ptrdiff_t> match(handheld.size(), -1);
    const auto take = [&](std::size_t k, auto&& same) {
        for (std::size_t i = 0; i < desktop.size(); ++i) {
            if (!taken[i] && same(i)) {
                taken[i] = true;
                match[k] = static_cast<std::ptrdiff_t>(i);
                return;
            }
        }
    };
    // Days that went to the handheld and came back unchanged find their own day first, so that
    // several days of one date keep their order.
    for (std::size_t k = 0; k < handheld.size(); ++k)
        take(k, [&](std::size_t i) { return desktop[i].date == handheld[k]; });
    std::vector<model::CalendarDate> dates;
    dates.reserve(desktop.size());
    for (const model::JournalDay& d : desktop)
        dates.push_back(model::CalendarDate::fromTime(d.date));
    for (std::size_t k = 0; k < handheld.size(); ++k) {
        if (match[k] >= 0)
            continue;
        const model::CalendarDate date = model::CalendarDate::fromTime(handheld[k]);
        take(k, [&](std::size_t i) { return dates[i] == date; });
    }
    return match;
}

bool dayTimesWithin(const model::JournalDay& day, model::TimeT lo, model::TimeT hi)
{
    const auto in = [lo, hi](model::TimeT t) { return t >= lo && t <= hi; };
    if (!in(day.date) || !in(day.health.wakeTime))
        return false;
    for (const model::VariableUse& u : day.health.variables)
        if (!in(u.time))
            return false;
    for (const model::Meal& m : day.meals)
        if (!in(m.time))
            return false;
    for (const model::WorkoutEntry& w : day.workouts) {
        if (!in(w.time))
            return false;
        for (const model::ExerciseRecord& r : w.exercises)
            if (!in(r.time))
                return false;
    }
    return true;
}

namespace {

std::vector<model::TimeT> daysOutside(const std::vector<model::JournalDay>& days, model::TimeT lo,
                                      model::TimeT hi)
{
    std::vector<model::TimeT> out;
    for (const model::JournalDay& d : days)
        if (!dayTimesWithin(d, lo, hi))
            out.push_back(d.date);
    return out;
}

template <class T> std::int32_t nextAbove(std::int32_t counter, const std::vector<T>& list)
{
    for (const T& item : list)
        if (item.id >= counter && item.id < std::numeric_limits<std::int32_t>::max())
            counter = item.id + 1;
    return counter;
}

} // namespace

std::vector<model::TimeT> daysBeyondSignedTimes(const std::vector<model::JournalDay>& days)
{
    return daysOutside(days, std::numeric_limits<std::int32_t>::min(),
                       std::numeric_limits<std::int32_t>::max());
}

std::vector<model::TimeT> daysBeyondDesktopTimes(const std::vector<model::JournalDay>& days)
{
    return daysOutside(days, 0, std::numeric_limits<std::uint32_t>::max());
}

void importDefinitions(const model::DefinitionLists& handheld, model::SharedData& desktop)
{
    if (!handheld.fields.empty())
        desktop.fields = handheld.fields;
    if (!handheld.exercises.empty())
        desktop.exercises = handheld.exercises;
    if (!handheld.routines.empty())
        desktop.routines = handheld.routines;
    if (!handheld.variables.empty())
        desktop.variables = handheld.variables;
}

model::DefinitionLists exportDefinitions(const model::SharedData& desktop)
{
    return model::DefinitionLists{desktop.fields, desktop.exercises, desktop.routines,
                                  desktop.variables};
}

void raiseCountersAboveIds(model::SharedData& desktop)
{
    auto& c = desktop.counters.values;
    using Slot = model::IdCounters::Slot;
    c[Slot::CustomFood] = std::max(c[Slot::CustomFood], model::FirstCustomFoodNumber);
    for (const model::FoodItem& f : desktop.customFoods)
        if (f.number >= c[Slot::CustomFood] && f.number < std::numeric_limits<std::int32_t>::max())
            c[Slot::CustomFood] = f.number + 1;
    c[Slot::UserVariable] = nextAbove(c[Slot::UserVariable], desktop.variables);
    c[Slot::ExerciseField] = nextAbove(c[Slot::ExerciseField], desktop.fields);
    c[Slot::Exercise] = nextAbove(c[Slot::Exercise], desktop.exercises);
    c[Slot::Routine] = nextAbove(c[Slot::Routine], desktop.routines);
}

} // namespace velmora::sync
