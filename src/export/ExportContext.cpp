#include "export/ExportContext.h"

#include <algorithm>

#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::exchange {

ExportContext::ExportContext(const model::Store& store)
    : m_store(store), m_nutrients(nutrientColumns(store.foods.catalogue()))
{
    for (const NutrientColumn& c : m_nutrients) {
        const int i = model::nutrient::isComputed(c.nutrient)
                          ? -1
                          : store.foods.catalogue().indexOf(c.nutrient);
        m_positions.push_back(i < model::StoredNutrientCount ? i : -1);
    }
    m_units.metric = store.journal.user.isMetric();
    m_userName = model::cp1252ToUtf8(store.currentUserName());
    for (const model::ExerciseField& f : store.shared.fields) {
        if (m_fieldIndex.contains(f.id))
            continue; // first definition wins, as for every lookup
        m_fieldIndex.emplace(f.id, static_cast<int>(m_fields.size()));
        std::string header = model::cp1252ToUtf8(f.name);
        if (header.empty())
            header = "Field " + std::to_string(f.id);
        m_fields.push_back({f.id, std::move(header)});
    }
    for (const model::Routine& r : store.shared.routines)
        m_routines.try_emplace(r.id, model::cp1252ToUtf8(r.name));
    for (const model::Exercise& e : store.shared.exercises)
        m_exercises.try_emplace(e.id, model::cp1252ToUtf8(e.name));
    for (const model::UserVariable& v : store.shared.variables)
        m_variables.try_emplace(v.id, model::cp1252ToUtf8(v.name));
}

int ExportContext::fieldColumn(std::int32_t id) const
{
    const auto it = m_fieldIndex.find(id);
    return it == m_fieldIndex.end() ? -1 : it->second;
}

const std::string& ExportContext::nameIn(const Names& names, std::int32_t id)
{
    static const std::string none;
    const auto it = names.find(id);
    return it == names.end() ? none : it->second;
}

void DayView::compute(const ExportContext& context, const model::JournalDay& d)
{
    const model::Store& store = context.store();
    const model::NutrientCatalogue& catalogue = store.foods.catalogue();
    const auto& columns = context.nutrients();
    day = &d;
    meals.clear();
    entries.clear();
    entryValues.clear();
    group.clear();
    totals.assign(columns.size(), 0.0);
    totalGrams = 0.0;
    energy = 0.0;
    workoutCalories = 0;
    hasFood = false;

    // Every food looked up once, in stored meal order: the group of the day is resolved in the
    // order the store resolves it, so that sums add up in the same order and equal the program's
    // own totals to the last bit.
    m_resolved.clear();
    m_firstOfMeal.clear();
    for (const model::Meal& m : d.meals) {
        m_firstOfMeal.push_back(m_resolved.size());
        for (const model::FoodEntry& e : m.entries) {
            const model::FoodItem* food = store.findFood(e.food);
            m_resolved.push_back(food);
            if (food)
                group.push_back(model::ResolvedEntry{food, e.amount});
        }
    }

    for (const model::Meal& m : d.meals)
        meals.push_back(&m);
    std::stable_sort(meals.begin(), meals.end(),
                     [](const model::Meal* a, const model::Meal* b) { return a->kind < b->kind; });
    const auto& positions = context.storedPositions();
    for (const model::Meal* m : meals) {
        std::size_t k = m_firstOfMeal[static_cast<std::size_t>(m - d.meals.data())];
        for (const model::FoodEntry& e : m->entries) {
            hasFood = true;
            EntryView view{m, &e, m_resolved[k++], 0.0, entryValues.size()};
            if (view.food) {
                view.grams =
                    model::entryValue(catalogue, *view.food, e.amount, model::nutrient::Amount);
                // The stored values of the entry by the core's stored-totals path over the entry
                // alone (each is value x amount, as entryValue gives it), the computed ones by
                // entryValue.
                const model::ResolvedEntry one{view.food, e.amount};
                const auto stored = model::groupStoredTotals(std::span(&one, 1));
                for (std::size_t i = 0; i < columns.size(); ++i)
                    entryValues.push_back(positions[i] >= 0
                                              ? stored[static_cast<std::size_t>(positions[i])]
                                              : model::entryValue(catalogue, *view.food, e.amount,
                                                                  columns[i].nutrient));
            }
            entries.push_back(view);
        }
    }
    // The day's totals by the group rule over all entries of all meals, as the program shows them.
    // Stored nutrients all at once by the core's fast path, which adds the same products in the
    // same order as the group rule does for one nutrient.
    const auto stored = model::groupStoredTotals(group);
    for (std::size_t i = 0; i < columns.size(); ++i)
        totals[i] = positions[i] >= 0 ? stored[static_cast<std::size_t>(positions[i])]
                                      : model::groupValue(catalogue, group, columns[i].nutrient);
    totalGrams = model::groupValue(catalogue, group, model::nutrient::Amount);
    energy = model::groupValue(catalogue, group, model::nutrient::Energy);
    for (const model::WorkoutEntry& w : d.workouts)
        workoutCalories += w.calories;
}

} // namespace velmora::exchange
