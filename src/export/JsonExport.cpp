#include "export/JsonExport.h"

#include "export/ExportContext.h"
#include "export/FieldText.h"
#include "export/JournalExport.h"
#include "model/FoodDatabase.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::exchange {

namespace {

// The version of the document's layout; it rises when a key changes meaning or goes away.
constexpr int LayoutVersion = 1;

void timeOrNull(JsonWriter& json, std::string_view key, model::TimeT t)
{
    if (t == 0)
        json.null(key);
    else
        json.text(key, isoTime(t));
}

void storedOrNull(JsonWriter& json, std::string_view key, float v)
{
    if (v == 0.0f)
        json.null(key);
    else
        json.storedNumber(key, v);
}

} // namespace

JsonExport::JsonExport(const ExportContext& context, const ExportOptions& options)
    : m_context(context)
{
    const HealthUnits units = context.units();
    m_json.beginObject();
    m_json.breakLines();
    m_json.text("format", "Velmora journal export");
    m_json.integer("version", LayoutVersion);
    m_json.text("user", context.userName());
    if (options.from)
        m_json.text("from", isoDate(*options.from));
    else
        m_json.null("from");
    if (options.to)
        m_json.text("to", isoDate(*options.to));
    else
        m_json.null("to");
    m_json.beginObject("units");
    m_json.text("weight", units.weight());
    m_json.text("length", units.length());
    m_json.text("temperature", units.temperature());
    m_json.endObject();
    m_json.beginArray("nutrients");
    for (const NutrientColumn& c : context.nutrients()) {
        m_json.beginObject();
        m_json.integer("number", c.nutrient);
        m_json.text("name", c.header);
        m_json.text("unit", c.unit);
        m_json.endObject();
    }
    m_json.endArray();
    m_json.beginArray("days");
    m_json.breakLines();
}

void JsonExport::reserve(std::size_t days, std::size_t entries)
{
    const std::size_t width = m_context.nutrients().size() * 8;
    m_json.reserve(entries * (width + 120) + days * (width + 1000));
}

void JsonExport::addDay(const DayView& day)
{
    const model::JournalDay& d = *day.day;
    m_json.beginObject();
    m_json.text("date", isoDate(d.date));
    addMeals(day);
    if (day.hasFood || !d.workouts.empty()) {
        m_json.number("foodWeight", day.totalGrams);
        m_json.beginArray("totals");
        for (double v : day.totals)
            m_json.number({}, v);
        m_json.endArray();
        m_json.integer("workoutCalories", day.workoutCalories);
        m_json.number("netEnergy", day.energy - static_cast<double>(day.workoutCalories));
    }
    addHealth(day);
    addWorkouts(day);
    m_json.beginObject("notes");
    for (int c = 0; c < model::NoteCategoryCount; ++c) {
        const std::string& text = d.notes[static_cast<std::size_t>(c)];
        if (!text.empty())
            m_json.text(model::NoteCategoryNames[static_cast<std::size_t>(c)],
                        model::cp1252ToUtf8(text));
    }
    m_json.endObject();
    m_json.endObject();
}

void JsonExport::addMeals(const DayView& day)
{
    const auto& columns = m_context.nutrients();
    m_json.beginArray("meals");
    std::size_t next = 0; // entries are listed meal by meal in the view
    for (const model::Meal* meal : day.meals) {
        if (meal->entries.empty())
            continue;
        m_json.beginObject();
        m_json.text("meal", meal->kind < model::MealNames.size()
                                ? model::MealNames[meal->kind]
                                : model::formatText("Meal %d", meal->kind + 1));
        timeOrNull(m_json, "time", meal->time);
        m_json.beginArray("foods");
        for (; next < day.entries.size() && day.entries[next].meal == meal; ++next) {
            const EntryView& e = day.entries[next];
            const bool custom = e.entry->food >= model::FirstCustomFoodNumber;
            m_json.beginObject();
            m_json.integer("number", e.entry->food);
            if (e.food) {
                m_json.text("name", model::cp1252ToUtf8(e.food->name));
                m_json.text(
                    "amount",
                    custom
                        ? model::formatText("%.2lf x serving", static_cast<double>(e.entry->amount))
                        : model::cp1252ToUtf8(model::servingText(*e.food, e.entry->amount)));
                m_json.number("grams", e.grams);
            } else {
                m_json.null("name");
                m_json.null("amount");
                if (custom)
                    m_json.null("grams");
                else
                    m_json.number("grams", static_cast<double>(e.entry->amount) * 100.0);
            }
            if (custom)
                m_json.storedNumber("servings", e.entry->amount);
            else
                m_json.null("servings");
            if (e.food) {
                m_json.beginArray("values");
                const double* values = day.valuesOf(e);
                for (std::size_t i = 0; i < columns.size(); ++i)
                    m_json.number({}, values[i]);
                m_json.endArray();
            } else {
                m_json.null("values");
            }
            m_json.endObject();
        }
        m_json.endArray();
        m_json.endObject();
    }
    m_json.endArray();
}

void JsonExport::addHealth(const DayView& day)
{
    const model::HealthEntry& h = day.day->health;
    const HealthUnits units = m_context.units();
    if (h.isEmpty()) {
        m_json.null("health");
    } else {
        m_json.beginObject("health");
        timeOrNull(m_json, "Wake time", h.wakeTime);
        for (int v = 0; v < HealthValueCount; ++v) {
            const auto value = static_cast<HealthValue>(v);
            storedOrNull(m_json, healthHeader(value, units), healthValue(h, value));
        }
        m_json.text("Mood", moodWord(h.mood));
        for (const MeasurementColumn& c : MeasurementColumns)
            storedOrNull(m_json, measurementHeader(c, units), h.measurement(c.measurement));
        m_json.endObject();
    }
    m_json.beginArray("variables");
    for (const model::VariableUse& u : h.variables) {
        m_json.beginObject();
        m_json.text("variable", m_context.variableName(u.variable));
        storedOrNull(m_json, "number", u.number);
        m_json.text("text", model::cp1252ToUtf8(u.text));
        timeOrNull(m_json, "time", u.time);
        m_json.endObject();
    }
    m_json.endArray();
}

void JsonExport::addWorkouts(const DayView& day)
{
    const auto& fields = m_context.fieldColumns();
    m_json.beginArray("workouts");
    for (const model::WorkoutEntry& w : day.day->workouts) {
        m_json.beginObject();
        timeOrNull(m_json, "time", w.time);
        m_json.text("routine", m_context.routineName(w.routine));
        m_json.integer("calories", w.calories);
        m_json.text("notes", model::cp1252ToUtf8(w.notes));
        m_json.beginArray("sets");
        for (const model::ExerciseRecord& r : w.exercises) {
            m_json.beginObject();
            m_json.text("exercise", m_context.exerciseName(r.exercise));
            m_json.integer("set", static_cast<long long>(r.setNumber) + 1);
            m_json.beginObject("values");
            for (const model::ExerciseValue& v : r.values) {
                const int column = m_context.fieldColumn(v.field);
                if (column >= 0)
                    m_json.text(fields[static_cast<std::size_t>(column)].header,
                                model::cp1252ToUtf8(v.value));
            }
            m_json.endObject();
            m_json.endObject();
        }
        m_json.endArray();
        m_json.endObject();
    }
    m_json.endArray();
}

ExportFile JsonExport::finish()
{
    m_json.endArray();
    m_json.endObject();
    return ExportFile{JsonFileName, m_json.take()};
}

} // namespace velmora::exchange
