#include "export/CsvExport.h"

#include "export/ExportContext.h"
#include "export/FieldText.h"
#include "export/JournalExport.h"
#include "model/FoodDatabase.h"
#include "model/TextCodec.h"

namespace velmora::exchange {

namespace {

std::string mealName(const model::Meal& m)
{
    if (m.kind < model::MealNames.size())
        return model::MealNames[m.kind];
    return model::formatText("Meal %d", m.kind + 1);
}

void timeOrEmpty(CsvWriter& out, model::TimeT t)
{
    if (t == 0)
        out.empty();
    else
        out.text(isoTime(t));
}

} // namespace

CsvExport::CsvExport(const ExportContext& context) : m_context(context)
{
    writeHeaders();
}

void CsvExport::writeHeaders()
{
    const auto& nutrients = m_context.nutrients();
    const HealthUnits units = m_context.units();

    std::vector<std::string> servings{"Date", "Meal time", "Meal",       "Food number",
                                      "Food", "Amount",    "Weight (g)", "Servings"};
    std::vector<std::string> daily{"Date", "Food weight (g)"};
    for (const NutrientColumn& c : nutrients) {
        servings.push_back(c.header);
        daily.push_back(c.header);
    }
    daily.push_back("Workout calories (kcal)");
    daily.push_back("Net energy (kcal)");
    m_servings.header(servings);
    m_daily.header(daily);

    std::vector<std::string> health{"Date", "Wake time"};
    for (int v = 0; v < HealthValueCount; ++v)
        health.push_back(healthHeader(static_cast<HealthValue>(v), units));
    health.push_back("Mood");
    for (const MeasurementColumn& c : MeasurementColumns)
        health.push_back(measurementHeader(c, units));
    m_health.header(health);

    m_variables.header(std::vector<std::string>{"Date", "Variable", "Number", "Text", "Time"});

    std::vector<std::string> workouts{
        "Date", "Time", "Routine", "Workout calories (kcal)", "Workout notes", "Exercise", "Set"};
    for (const auto& f : m_context.fieldColumns())
        workouts.push_back(f.header);
    m_workouts.header(workouts);

    m_notes.header(std::vector<std::string>{"Date", "Category", "Text"});
}

void CsvExport::reserve(std::size_t days, std::size_t entries)
{
    const std::size_t width = m_context.nutrients().size() * 8;
    m_servings.reserve(entries * (width + 100));
    m_daily.reserve(days * (width + 40));
}

void CsvExport::addDay(const DayView& day)
{
    const std::string date = isoDate(day.day->date);
    addServings(day, date);
    addDaily(day, date);
    addHealth(day, date);
    addWorkouts(day, date);
    addNotes(day, date);
}

void CsvExport::addServings(const DayView& day, const std::string& date)
{
    const std::size_t columns = m_context.nutrients().size();
    const model::Meal* meal = nullptr;
    std::string time, name; // of the meal, which its entries share
    for (const EntryView& e : day.entries) {
        if (e.meal != meal) {
            meal = e.meal;
            time = meal->time == 0 ? std::string() : isoTime(meal->time);
            name = mealName(*meal);
        }
        CsvWriter& out = m_servings;
        out.text(date);
        out.text(time);
        out.text(name);
        out.integer(e.entry->food);
        const bool custom = e.entry->food >= model::FirstCustomFoodNumber;
        if (e.food) {
            out.text(model::cp1252ToUtf8(e.food->name));
            if (custom)
                out.text(
                    model::formatText("%.2lf x serving", static_cast<double>(e.entry->amount)));
            else
                out.text(model::cp1252ToUtf8(model::servingText(*e.food, e.entry->amount)));
            out.number(e.grams);
        } else {
            // The food no longer exists: the entry counts as nothing, but its amount is kept.
            out.empty();
            out.empty();
            if (custom)
                out.empty();
            else
                out.number(static_cast<double>(e.entry->amount) * 100.0);
        }
        if (custom)
            out.storedNumber(e.entry->amount);
        else
            out.empty();
        if (e.food) {
            const double* values = day.valuesOf(e);
            for (std::size_t i = 0; i < columns; ++i)
                out.number(values[i]);
        } else {
            for (std::size_t i = 0; i < columns; ++i)
                out.empty();
        }
        out.endRow();
        ++m_servingRows;
    }
}

void CsvExport::addDaily(const DayView& day, const std::string& date)
{
    if (!day.hasFood && day.day->workouts.empty())
        return;
    CsvWriter& out = m_daily;
    out.text(date);
    out.number(day.totalGrams);
    for (double v : day.totals)
        out.number(v);
    out.integer(day.workoutCalories);
    out.number(day.energy - static_cast<double>(day.workoutCalories));
    out.endRow();
}

void CsvExport::addHealth(const DayView& day, const std::string& date)
{
    const model::HealthEntry& h = day.day->health;
    if (!h.isEmpty()) {
        CsvWriter& out = m_health;
        out.text(date);
        timeOrEmpty(out, h.wakeTime);
        for (int v = 0; v < HealthValueCount; ++v)
            out.storedNumberOrEmpty(healthValue(h, static_cast<HealthValue>(v)));
        out.text(moodWord(h.mood));
        for (const MeasurementColumn& c : MeasurementColumns)
            out.storedNumberOrEmpty(h.measurement(c.measurement));
        out.endRow();
        ++m_healthRows;
    }
    for (const model::VariableUse& u : h.variables) {
        CsvWriter& out = m_variables;
        out.text(date);
        out.text(m_context.variableName(u.variable));
        out.storedNumberOrEmpty(u.number);
        out.text(model::cp1252ToUtf8(u.text));
        timeOrEmpty(out, u.time);
        out.endRow();
    }
}

void CsvExport::addWorkouts(const DayView& day, const std::string& date)
{
    const auto& fields = m_context.fieldColumns();
    for (const model::WorkoutEntry& w : day.day->workouts) {
        const std::string time = w.time == 0 ? std::string() : isoTime(w.time);
        const std::string notes = model::cp1252ToUtf8(w.notes);
        const auto workoutCells = [&](CsvWriter& out) {
            out.text(date);
            out.text(time);
            out.text(m_context.routineName(w.routine));
            out.integer(w.calories);
            out.text(notes);
        };
        if (w.exercises.empty()) {
            // A workout without sets still has its calories: one row with no exercise.
            workoutCells(m_workouts);
            m_workouts.empty();
            m_workouts.empty();
            for (std::size_t i = 0; i < fields.size(); ++i)
                m_workouts.empty();
            m_workouts.endRow();
            continue;
        }
        for (const model::ExerciseRecord& r : w.exercises) {
            workoutCells(m_workouts);
            m_workouts.text(m_context.exerciseName(r.exercise));
            m_workouts.integer(static_cast<long long>(r.setNumber) + 1);
            std::vector<std::string> cells(fields.size());
            for (const model::ExerciseValue& v : r.values) {
                const int column = m_context.fieldColumn(v.field);
                if (column >= 0)
                    cells[static_cast<std::size_t>(column)] = model::cp1252ToUtf8(v.value);
            }
            for (const std::string& c : cells)
                m_workouts.text(c);
            m_workouts.endRow();
            ++m_setRows;
        }
    }
}

void CsvExport::addNotes(const DayView& day, const std::string& date)
{
    for (int c = 0; c < model::NoteCategoryCount; ++c) {
        const std::string& text = day.day->notes[static_cast<std::size_t>(c)];
        if (text.empty())
            continue;
        m_notes.text(date);
        m_notes.text(model::NoteCategoryNames[static_cast<std::size_t>(c)]);
        m_notes.text(model::cp1252ToUtf8(text));
        m_notes.endRow();
    }
}

std::vector<ExportFile> CsvExport::finish()
{
    std::vector<ExportFile> files;
    files.push_back({ServingsFileName, m_servings.take()});
    files.push_back({DailyFileName, m_daily.take()});
    files.push_back({HealthFileName, m_health.take()});
    files.push_back({VariablesFileName, m_variables.take()});
    files.push_back({WorkoutsFileName, m_workouts.take()});
    files.push_back({NotesFileName, m_notes.take()});
    return files;
}

} // namespace velmora::exchange
