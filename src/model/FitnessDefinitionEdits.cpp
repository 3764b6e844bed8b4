#include "model/FitnessDefinitionEdits.h"

#include <algorithm>

#include "model/DefinitionEdits.h"
#include "model/Store.h"
#include "model/UserDatabase.h"

namespace velmora::model {

namespace {

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

std::optional<std::vector<std::int32_t>> exerciseFieldsAfterStore(const Exercise* existing,
                                                                  const std::vector<FieldRow>& rows)
{
    const auto contains = [](const std::vector<std::int32_t>& list, std::int32_t id) {
        return std::find(list.begin(), list.end(), id) != list.end();
    };
    std::vector<std::int32_t> fields;
    if (existing) {
        for (std::int32_t id : existing->fields) {
            const auto row = std::find_if(rows.begin(), rows.end(),
                                          [id](const FieldRow& r) { return r.field == id; });
            if (row == rows.end() || row->checked)
                fields.push_back(id);
        }
    }
    for (const FieldRow& row : rows)
        if (row.checked && !contains(fields, row.field))
            fields.push_back(row.field);
    if (!existing && fields.empty())
        return std::nullopt;
    return fields;
}

void applyVariableForm(UserVariable& definition, const VariableForm& form)
{
    definition.askNumber = form.ask.number ? 1 : 0;
    definition.askText = form.ask.text ? 1 : 0;
    definition.askTime = form.ask.time ? 1 : 0;
    definition.number = form.number;
    definition.text = form.text;
    definition.time = form.time;
}

namespace {

// The definition of exactly that stored name, or a new one appended under the next number of
// its counter.
template <typename Definition>
Definition& namedOrNew(std::vector<Definition>& list, const std::string& name, IdCounters& counters,
                       IdCounters::Slot counter)
{
    if (const auto at = definitionNamed(list, name))
        return list[*at];
    Definition fresh;
    fresh.id = counters.take(counter);
    fresh.name = name;
    list.push_back(fresh);
    return list.back();
}

} // namespace

std::optional<std::int32_t> storeField(SharedData& shared, const std::string& typedName, int kind)
{
    const std::string name = definitionName(typedName);
    if (name.empty())
        return std::nullopt;
    kind = std::clamp(kind, 0, FieldKindCount - 1);
    ExerciseField& field =
        namedOrNew(shared.fields, name, shared.counters, IdCounters::ExerciseField);
    field.kind = kind;
    return field.id;
}

std::optional<std::int32_t> storeExercise(SharedData& shared, const std::string& typedName,
                                          const std::vector<FieldRow>& rows)
{
    const std::string name = definitionName(typedName);
    if (name.empty())
        return std::nullopt;
    const auto at = definitionNamed(shared.exercises, name);
    Exercise* existing = at ? &shared.exercises[*at] : nullptr;
    auto fields = exerciseFieldsAfterStore(existing, rows);
    if (!fields)
        return std::nullopt;
    if (existing) {
        existing->fields = std::move(*fields);
        return existing->id;
    }
    Exercise exercise;
    exercise.id = shared.counters.take(IdCounters::Exercise);
    exercise.name = name;
    exercise.fields = std::move(*fields);
    shared.exercises.push_back(exercise);
    return exercise.id;
}

std::optional<std::int32_t> storeRoutine(SharedData& shared, const std::string& typedName,
                                         const std::vector<std::int32_t>& exercises,
                                         std::int32_t calories)
{
    const std::string name = definitionName(typedName);
    if (name.empty())
        return std::nullopt;
    Routine& routine = namedOrNew(shared.routines, name, shared.counters, IdCounters::Routine);
    routine.exercises = exercises;
    routine.calories = calories;
    return routine.id;
}

std::optional<std::int32_t> storeVariable(SharedData& shared, const std::string& typedName,
                                          const VariableForm& form)
{
    const std::string name = definitionName(typedName);
    if (name.empty())
        return std::nullopt;
    UserVariable& variable =
        namedOrNew(shared.variables, name, shared.counters, IdCounters::UserVariable);
    applyVariableForm(variable, form);
    return variable.id;
}

bool deleteField(Store& store, const std::string& name)
{
    auto& fields = store.shared.fields;
    const auto at = definitionNamed(fields, name);
    if (!at)
        return false;
    fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(*at));
    store.normalise();
    return true;
}

bool deleteExercise(Store& store, std::int32_t id)
{
    if (!eraseById(store.shared.exercises, id))
        return false;
    store.normalise();
    return true;
}

bool deleteRoutine(Store& store, std::int32_t id)
{
    if (!eraseById(store.shared.routines, id))
        return false;
    store.normalise();
    return true;
}

bool deleteVariable(Store& store, std::int32_t id)
{
    if (!eraseById(store.shared.variables, id))
        return false;
    // The store's clean-up keeps variable uses, so the uses of this one go here.
    for (JournalDay& day : store.journal.days)
        std::erase_if(day.health.variables,
                      [id](const VariableUse& use) { return use.variable == id; });
    store.normalise();
    return true;
}

} // namespace velmora::model
