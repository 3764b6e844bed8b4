#include "fitness/logic/FitnessEdits.h"

#include <algorithm>

#include "fitness/logic/HealthJournal.h"
#include "fitness/logic/JournalDays.h"
#include "fitness/logic/JournalNotes.h"
#include "fitness/logic/WorkoutSets.h"
#include "model/Store.h"
#include "model/UserDatabase.h"

namespace velmora::fitness {

namespace {

// The day of date, appended (stamped with the date's local midnight) when the user has none.
std::size_t dayFor(model::UserJournal& journal, const model::CalendarDate& date)
{
    if (const auto day = dayIndexOf(journal, date))
        return *day;
    model::JournalDay day;
    day.date = date.toTime();
    journal.days.push_back(std::move(day));
    return journal.days.size() - 1;
}

// Two entries are the same when the file would hold the same bytes for them.
bool sameEntry(const model::HealthEntry& a, const model::HealthEntry& b)
{
    model::ArchiveWriter left;
    model::ArchiveWriter right;
    model::writeHealthEntry(left, a);
    model::writeHealthEntry(right, b);
    return left.bytes() == right.bytes();
}

template <typename Definition> bool eraseById(std::vector<Definition>& list, std::int32_t id)
{
    const auto it =
        std::find_if(list.begin(), list.end(), [id](const Definition& d) { return d.id == id; });
    if (it == list.end())
        return false;
    list.erase(it);
    return true;
}

} // namespace

bool storeHealthEntry(model::UserJournal& journal, const model::CalendarDate& date,
                      const model::HealthEntry& entry)
{
    const StorePlan plan = planHealthStore(journal, date, entry);
    switch (plan.action) {
    case StoreAction::UpdateDay:
        if (sameEntry(journal.days[plan.day].health, entry))
            return false;
        journal.days[plan.day].health = entry;
        return true;
    case StoreAction::AppendDay:
        journal.days[dayFor(journal, date)].health = entry;
        return true;
    case StoreAction::Nothing:
        break;
    }
    return false;
}

bool clearHealthEntry(model::UserJournal& journal, const model::CalendarDate& date)
{
    const auto day = dayIndexOf(journal, date);
    if (!day)
        return false;
    journal.days[*day].health = model::HealthEntry{};
    return true;
}

bool storeNote(model::UserJournal& journal, const model::CalendarDate& date, int category,
               const std::string& text)
{
    if (category < 0 || category >= model::NoteCategoryCount)
        return false;
    const StorePlan plan = planNoteStore(journal, date, text);
    std::size_t day = 0;
    switch (plan.action) {
    case StoreAction::UpdateDay:
        day = plan.day;
        break;
    case StoreAction::AppendDay:
        day = dayFor(journal, date);
        break;
    case StoreAction::Nothing:
        return false;
    }
    std::string& note = journal.days[day].notes[static_cast<std::size_t>(category)];
    if (note == text)
        return false;
    note = text;
    return true;
}

WorkoutPlace commitWorkout(model::UserJournal& journal, model::WorkoutEntry workout,
                           std::optional<WorkoutPlace> from)
{
    renumberSets(workout.exercises);
    if (from && from->day < journal.days.size()) {
        auto& workouts = journal.days[from->day].workouts;
        if (from->workout < workouts.size())
            workouts.erase(workouts.begin() + static_cast<std::ptrdiff_t>(from->workout));
    }
    const std::size_t day = dayFor(journal, model::CalendarDate::fromTime(workout.time));
    journal.days[day].workouts.push_back(std::move(workout));
    return {day, journal.days[day].workouts.size() - 1};
}

bool deleteWorkout(model::UserJournal& journal, const WorkoutPlace& place)
{
    if (place.day >= journal.days.size())
        return false;
    auto& workouts = journal.days[place.day].workouts;
    if (place.workout >= workouts.size())
        return false;
    workouts.erase(workouts.begin() + static_cast<std::ptrdiff_t>(place.workout));
    return true;
}

void setFitnessColumns(model::User& user, const std::array<int, 10>& chosen)
{
    bool ended = false;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        ended = ended || chosen[i] < 0;
        user.fitnessColumns[i] = ended ? -1 : chosen[i];
        if (ended)
            user.fitnessColumnWidths[i + 1] = 0;
    }
}

void setFitnessColumnWidth(model::User& user, int column, int width)
{
    if (column < 0 || column >= static_cast<int>(user.fitnessColumnWidths.size()) || width < 0)
        return;
    user.fitnessColumnWidths[static_cast<std::size_t>(column)] = width;
}

std::optional<std::int32_t> storeField(model::SharedData& shared, const std::string& typedName,
                                       int kind)
{
    const auto name = definitionName(typedName);
    if (!name)
        return std::nullopt;
    kind = std::clamp(kind, 0, model::FieldKindCount - 1);
    if (const auto at = definitionNamed(shared.fields, *name)) {
        shared.fields[*at].kind = kind;
        return shared.fields[*at].id;
    }
    model::ExerciseField field;
    field.id = shared.counters.take(model::IdCounters::ExerciseField);
    field.name = *name;
    field.kind = kind;
    shared.fields.push_back(field);
    return field.id;
}

std::optional<std::int32_t> storeExercise(model::SharedData& shared, const std::string& typedName,
                                          const std::vector<FieldRow>& rows)
{
    const auto name = definitionName(typedName);
    if (!name)
        return std::nullopt;
    const auto at = definitionNamed(shared.exercises, *name);
    model::Exercise* existing = at ? &shared.exercises[*at] : nullptr;
    auto fields = exerciseFieldsAfterStore(existing, rows);
    if (!fields)
        return std::nullopt;
    if (existing) {
        existing->fields = std::move(*fields);
        return existing->id;
    }
    model::Exercise exercise;
    exercise.id = shared.counters.take(model::IdCounters::Exercise);
    exercise.name = *name;
    exercise.fields = std::move(*fields);
    shared.exercises.push_back(exercise);
    return exercise.id;
}

std::optional<std::int32_t> storeRoutine(model::SharedData& shared, const std::string& typedName,
                                         const std::vector<std::int32_t>& exercises,
                                         std::int32_t calories)
{
    const auto name = definitionName(typedName);
    if (!name)
        return std::nullopt;
    model::Routine* routine = nullptr;
    if (const auto at = definitionNamed(shared.routines, *name)) {
        routine = &shared.routines[*at];
    } else {
        model::Routine fresh;
        fresh.id = shared.counters.take(model::IdCounters::Routine);
        fresh.name = *name;
        shared.routines.push_back(fresh);
        routine = &shared.routines.back();
    }
    routine->exercises = exercises;
    routine->calories = calories;
    return routine->id;
}

std::optional<std::int32_t> storeVariable(model::SharedData& shared, const std::string& typedName,
                                          const VariableForm& form)
{
    const auto name = definitionName(typedName);
    if (!name)
        return std::nullopt;
    model::UserVariable* variable = nullptr;
    if (const auto at = definitionNamed(shared.variables, *name)) {
        variable = &shared.variables[*at];
    } else {
        model::UserVariable fresh;
        fresh.id = shared.counters.take(model::IdCounters::UserVariable);
        fresh.name = *name;
        shared.variables.push_back(fresh);
        variable = &shared.variables.back();
    }
    applyVariableForm(*variable, form);
    return variable->id;
}

bool deleteField(model::Store& store, const std::string& name)
{
    auto& fields = store.shared.fields;
    const auto at = definitionNamed(fields, name);
    if (!at)
        return false;
    fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(*at));
    store.normalise();
    return true;
}

bool deleteExercise(model::Store& store, std::int32_t id)
{
    if (!eraseById(store.shared.exercises, id))
        return false;
    store.normalise();
    return true;
}

bool deleteRoutine(model::Store& store, std::int32_t id)
{
    if (!eraseById(store.shared.routines, id))
        return false;
    store.normalise();
    return true;
}

bool deleteVariable(model::Store& store, std::int32_t id)
{
    if (!eraseById(store.shared.variables, id))
        return false;
    // The store's clean-up keeps variable uses, so the uses of this one go here.
    for (model::JournalDay& day : store.journal.days)
        std::erase_if(day.health.variables,
                      [id](const model::VariableUse& use) { return use.variable == id; });
    store.normalise();
    return true;
}

} // namespace velmora::fitness
