#include "fitness/logic/WorkoutSets.h"

#include <algorithm>
#include <ctime>

#include "model/FitnessJournalEdits.h"
#include "model/FoodDatabase.h"
#include "model/TextCodec.h"
#include "model/UserDatabase.h"

namespace velmora::fitness {

namespace {

template <typename Definition>
const Definition* byId(const std::vector<Definition>& list, std::int32_t id)
{
    for (const Definition& d : list)
        if (d.id == id)
            return &d;
    return nullptr;
}

CellKind cellKind(std::int32_t fieldKind)
{
    switch (fieldKind) {
    case 1:
        return CellKind::Text;
    case 2:
        return CellKind::Time;
    default:
        return CellKind::Number;
    }
}

const model::ExerciseValue* valueOf(const model::ExerciseRecord& set, std::int32_t field)
{
    for (const model::ExerciseValue& v : set.values)
        if (v.field == field)
            return &v;
    return nullptr;
}

// The same set (exercise and set number) in the latest workout before time.
const model::ExerciseRecord* lastTime(const model::UserJournal& journal,
                                      const model::ExerciseRecord& set, model::TimeT time,
                                      const model::WorkoutEntry* exclude)
{
    const model::ExerciseRecord* best = nullptr;
    model::TimeT bestTime = 0;
    for (const model::JournalDay& day : journal.days) {
        for (const model::WorkoutEntry& w : day.workouts) {
            if (&w == exclude || w.time >= time || (best && w.time <= bestTime))
                continue;
            for (const model::ExerciseRecord& r : w.exercises) {
                if (r.exercise == set.exercise && r.setNumber == set.setNumber) {
                    best = &r;
                    bestTime = w.time;
                    break;
                }
            }
        }
    }
    return best;
}

} // namespace

model::ExerciseRecord newSet(const model::SharedData& shared, std::int32_t exercise)
{
    model::ExerciseRecord set;
    set.exercise = exercise;
    if (const model::Exercise* e = byId(shared.exercises, exercise))
        for (std::int32_t field : e->fields)
            set.values.push_back({field, {}});
    return set;
}

model::WorkoutEntry newWorkout(const model::SharedData& shared, const model::Routine& routine,
                               model::TimeT now)
{
    model::WorkoutEntry workout;
    workout.routine = routine.id;
    workout.time = now;
    for (std::int32_t exercise : routine.exercises) {
        if (!byId(shared.exercises, exercise))
            continue;
        model::ExerciseRecord set = newSet(shared, exercise);
        set.time = now;
        workout.exercises.push_back(std::move(set));
    }
    model::renumberSets(workout.exercises);
    return workout;
}

void appendSet(std::vector<model::ExerciseRecord>& sets, model::ExerciseRecord set)
{
    sets.push_back(std::move(set));
    model::renumberSets(sets);
}

bool removeSet(std::vector<model::ExerciseRecord>& sets, std::size_t index)
{
    if (index >= sets.size())
        return false;
    sets.erase(sets.begin() + static_cast<std::ptrdiff_t>(index));
    model::renumberSets(sets);
    return true;
}

std::optional<std::size_t> moveSet(std::vector<model::ExerciseRecord>& sets, std::size_t index,
                                   int direction)
{
    if (index >= sets.size() || (direction != -1 && direction != 1))
        return std::nullopt;
    if ((direction < 0 && index == 0) || (direction > 0 && index + 1 >= sets.size()))
        return std::nullopt;
    const std::size_t other = direction < 0 ? index - 1 : index + 1;
    std::swap(sets[index], sets[other]);
    model::renumberSets(sets);
    return other;
}

SetButtons setButtons(std::size_t count, std::optional<std::size_t> selected)
{
    if (!selected || *selected >= count)
        return {};
    return {true, *selected > 0, *selected + 1 < count};
}

std::string setHeading(const model::SharedData& shared, const model::ExerciseRecord& set)
{
    const model::Exercise* exercise = byId(shared.exercises, set.exercise);
    if (!exercise)
        return {};
    return model::formatText("%s, Set %d", model::cp1252ToUtf8(exercise->name).c_str(),
                             set.setNumber + 1);
}

std::vector<GridRow> valueGrid(const model::SharedData& shared, const model::UserJournal& journal,
                               const model::WorkoutEntry& workout, std::size_t set,
                               const model::WorkoutEntry* exclude)
{
    std::vector<GridRow> grid;
    if (set >= workout.exercises.size())
        return grid;
    const model::ExerciseRecord& record = workout.exercises[set];
    const model::Exercise* exercise = byId(shared.exercises, record.exercise);
    if (!exercise)
        return grid;
    const model::ExerciseRecord* last = lastTime(journal, record, workout.time, exclude);
    for (std::int32_t id : exercise->fields) {
        const model::ExerciseField* field = byId(shared.fields, id);
        if (!field)
            continue;
        GridRow row;
        row.field = id;
        row.name = model::cp1252ToUtf8(field->name);
        row.kind = cellKind(field->kind);
        if (const model::ExerciseValue* v = valueOf(record, id))
            row.value = model::cp1252ToUtf8(v->value);
        if (row.kind == CellKind::Time && row.value.empty())
            row.value = EmptyTimeCell;
        if (last)
            if (const model::ExerciseValue* v = valueOf(*last, id))
                row.last = model::cp1252ToUtf8(v->value);
        row.lastColour = row.last.empty() ? NoLastValueColour : LastValueColour;
        grid.push_back(std::move(row));
    }
    return grid;
}

void storeGrid(model::ExerciseRecord& set, const std::vector<GridRow>& grid)
{
    set.values.clear();
    for (const GridRow& row : grid)
        set.values.push_back({row.field, model::utf8ToCp1252(row.value)});
}

std::string previousNotes(const model::UserJournal& journal, std::int32_t routine,
                          const model::WorkoutEntry* exclude)
{
    const model::WorkoutEntry* latest = nullptr;
    for (const model::JournalDay& day : journal.days)
        for (const model::WorkoutEntry& w : day.workouts)
            if (&w != exclude && w.routine == routine && (!latest || w.time > latest->time))
                latest = &w;
    return latest ? latest->notes : std::string{};
}

model::TimeT workoutTime(const model::CalendarDate& date, int hour, int minute, int second)
{
    // Through the calendar, so that a day on which the clocks change keeps the time of day shown.
    std::tm fields{};
    fields.tm_year = date.year - 1900;
    fields.tm_mon = date.month - 1;
    fields.tm_mday = date.day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    fields.tm_isdst = -1;
    return static_cast<model::TimeT>(std::mktime(&fields));
}

} // namespace velmora::fitness
