#include "model/Normalisation.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>

namespace velmora::model {

namespace {

// Names compare as strcmp does: byte by byte as unsigned bytes, so "B..." sorts before "a...".
bool nameLess(const std::string& a, const std::string& b)
{
    return std::strcmp(a.c_str(), b.c_str()) < 0;
}

// The simple exchange sort: each later record whose name is lower than position i's is swapped
// into position i.
template <class T> void exchangeSortByName(std::vector<T>& list)
{
    for (std::size_t i = 0; i < list.size(); ++i)
        for (std::size_t j = i + 1; j < list.size(); ++j)
            if (nameLess(list[j].name, list[i].name))
                std::swap(list[i], list[j]);
}

template <class T, class Keep> void eraseUnless(std::vector<T>& list, Keep&& keep)
{
    std::erase_if(list, [&](const T& x) { return !keep(x); });
}

template <class T> std::unordered_set<std::int32_t> idsOf(const std::vector<T>& list)
{
    std::unordered_set<std::int32_t> ids;
    for (const T& x : list)
        ids.insert(x.id);
    return ids;
}

// The identifiers that references may point to.
struct Known
{
    explicit Known(const SharedData& shared)
        : fields(idsOf(shared.fields)), exercises(idsOf(shared.exercises)),
          routines(idsOf(shared.routines))
    {
    }
    std::unordered_set<std::int32_t> fields;
    std::unordered_set<std::int32_t> exercises;
    std::unordered_set<std::int32_t> routines;
};

} // namespace

void normaliseShared(SharedData& shared)
{
    const Known known(shared);
    for (Exercise& e : shared.exercises)
        eraseUnless(e.fields, [&](std::int32_t id) { return known.fields.contains(id); });
    for (Routine& r : shared.routines)
        eraseUnless(r.exercises, [&](std::int32_t id) { return known.exercises.contains(id); });
    {
        std::unordered_set<std::int32_t> seen;
        eraseUnless(shared.customFoods,
                    [&](const FoodItem& f) { return seen.insert(f.number).second; });
    }
    exchangeSortByName(shared.customFoods);
    exchangeSortByName(shared.fields);
    exchangeSortByName(shared.exercises);
    exchangeSortByName(shared.routines);
    exchangeSortByName(shared.variables);
}

void normaliseDays(std::vector<JournalDay>& days, const SharedData& shared)
{
    const Known known(shared);
    for (JournalDay& day : days) {
        for (WorkoutEntry& w : day.workouts) {
            eraseUnless(w.exercises, [&](const ExerciseRecord& r) {
                return known.exercises.contains(r.exercise);
            });
            for (ExerciseRecord& r : w.exercises)
                eraseUnless(r.values,
                            [&](const ExerciseValue& v) { return known.fields.contains(v.field); });
        }
        eraseUnless(day.workouts,
                    [&](const WorkoutEntry& w) { return known.routines.contains(w.routine); });
    }
}

bool daysNeedNormalising(const std::vector<JournalDay>& days, const SharedData& shared)
{
    const Known known(shared);
    for (const JournalDay& day : days)
        for (const WorkoutEntry& w : day.workouts) {
            if (!known.routines.contains(w.routine))
                return true;
            for (const ExerciseRecord& r : w.exercises) {
                if (!known.exercises.contains(r.exercise))
                    return true;
                for (const ExerciseValue& v : r.values)
                    if (!known.fields.contains(v.field))
                        return true;
            }
        }
    return false;
}

void normalise(SharedData& shared, std::vector<JournalDay>& days)
{
    normaliseDays(days, shared);
    normaliseShared(shared);
}

} // namespace velmora::model
