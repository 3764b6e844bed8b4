#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "export/ExportColumns.h"
#include "model/Journal.h"
#include "model/Nutrition.h"

namespace velmora::model {
class Store;
}

namespace velmora::exchange {

// What every exported file needs besides the days: the columns, the units and the names of the
// definitions that the records refer to by identifier, all in UTF-8.
class ExportContext
{
public:
    explicit ExportContext(const model::Store& store);

    const model::Store& store() const { return m_store; }
    const std::vector<NutrientColumn>& nutrients() const { return m_nutrients; }
    // Per nutrient column, the position of its stored value in every food (the catalogue's first
    // entry of that number), or -1 for a computed nutrient.
    const std::vector<int>& storedPositions() const { return m_positions; }
    HealthUnits units() const { return m_units; }
    const std::string& userName() const { return m_userName; }

    // One column per exercise field, in the order of the field definitions.
    struct FieldColumn
    {
        std::int32_t id = 0;
        std::string header;
    };
    const std::vector<FieldColumn>& fieldColumns() const { return m_fields; }
    // The column of a field, or -1 when no field has that identifier.
    int fieldColumn(std::int32_t id) const;

    // Names by identifier; empty when the definition no longer exists.
    const std::string& routineName(std::int32_t id) const { return nameIn(m_routines, id); }
    const std::string& exerciseName(std::int32_t id) const { return nameIn(m_exercises, id); }
    const std::string& variableName(std::int32_t id) const { return nameIn(m_variables, id); }

private:
    using Names = std::unordered_map<std::int32_t, std::string>;
    static const std::string& nameIn(const Names& names, std::int32_t id);

    const model::Store& m_store;
    std::vector<NutrientColumn> m_nutrients;
    std::vector<int> m_positions;
    HealthUnits m_units;
    std::string m_userName;
    std::vector<FieldColumn> m_fields;
    std::unordered_map<std::int32_t, int> m_fieldIndex;
    Names m_routines, m_exercises, m_variables;
};

// One food entry of a day as the export shows it.
struct EntryView
{
    const model::Meal* meal = nullptr;
    const model::FoodEntry* entry = nullptr;
    const model::FoodItem* food = nullptr; // nullptr: no food has the entry's number
    double grams = 0.0;                    // weight eaten: the entry's value of 104
    std::size_t firstValue = 0;            // position of its values in DayView::entryValues
};

// One journal day with every value computed once, for all files of an export.
struct DayView
{
    const model::JournalDay* day = nullptr;
    std::vector<const model::Meal*> meals;   // in meal order (Breakfast first), stable
    std::vector<EntryView> entries;          // meal by meal, in the order eaten
    std::vector<double> entryValues;         // entries x nutrient columns
    std::vector<model::ResolvedEntry> group; // the entries whose food exists, in stored order
    std::vector<double> totals;              // one per nutrient column
    double totalGrams = 0.0;
    double energy = 0.0; // the day's energy total in kcal
    long long workoutCalories = 0;
    bool hasFood = false; // at least one food entry, known or not

    // Fills the view for day with the core's entry and group values.
    void compute(const ExportContext& context, const model::JournalDay& day);
    const double* valuesOf(const EntryView& e) const { return entryValues.data() + e.firstValue; }

private:
    std::vector<const model::FoodItem*> m_resolved; // per entry in stored order; nullptr: unknown
    std::vector<std::size_t> m_firstOfMeal;         // position of each meal's first entry there
};

} // namespace velmora::exchange
