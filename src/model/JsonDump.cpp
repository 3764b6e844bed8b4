#include "model/JsonDump.h"

#include <array>

#include "model/JsonWriter.h"

namespace velmora::model {

namespace {

void dumpFood(JsonWriter& j, const FoodItem& f, const NutrientCatalogue* catalogue, bool custom)
{
    j.beginObject();
    j.integer("number", f.number);
    j.integer("group", f.group);
    j.text("name", f.name);
    if (custom)
        j.real("servingWeightGrams", f.servingWeight);
    j.beginArray(custom ? "valuesPerServing" : "valuesPer100g");
    for (std::size_t i = 0; i < f.values.size(); ++i) {
        j.beginObject();
        j.integer("position", static_cast<std::int64_t>(i));
        if (catalogue && i < catalogue->fileCount())
            j.integer("nutrient", catalogue->entries()[i].number);
        j.real("value", f.values[i]);
        j.endObject();
    }
    j.endArray();
    if (!custom) {
        j.beginArray("measures");
        for (const FoodMeasure& m : f.measures) {
            j.beginObject();
            j.real("grams", m.grams);
            j.text("description", m.description);
            j.endObject();
        }
        j.endArray();
    }
    j.endObject();
}

void dumpFoods(JsonWriter& j, const FoodDatabase& db)
{
    j.beginObject();
    j.beginArray("foods");
    for (const FoodItem& f : db.foods())
        dumpFood(j, f, &db.catalogue(), false);
    j.endArray();
    j.beginArray("nutrientCatalogue");
    for (std::size_t i = 0; i < db.catalogue().fileCount(); ++i) {
        const NutrientDef& d = db.catalogue().entries()[i];
        j.beginObject();
        j.integer("nutrient", d.number);
        j.text("shortText", d.shortText);
        j.text("name", d.name);
        j.endObject();
    }
    j.endArray();
    j.beginArray("foodGroups");
    for (const FoodGroup& g : db.groups()) {
        j.beginObject();
        j.integer("number", g.number);
        j.text("name", g.name);
        j.endObject();
    }
    j.endArray();
    j.beginArray("recommendedIntakes");
    for (const IntakeRecord& r : db.intakes()) {
        j.beginObject();
        j.integer("nutrient", r.nutrient);
        j.beginArray("recommendedPerLifeStageGroup");
        for (float v : r.recommended)
            j.real(nullptr, v);
        j.endArray();
        j.beginArray("secondValuePerLifeStageGroupRaw");
        for (std::uint32_t v : r.second)
            j.integer(nullptr, v);
        j.endArray();
        j.endObject();
    }
    j.endArray();
    j.endObject();
}

void dumpIds(JsonWriter& j, const char* key, const std::vector<std::int32_t>& ids)
{
    j.beginArray(key);
    for (std::int32_t id : ids)
        j.integer(nullptr, id);
    j.endArray();
}

void dumpShared(JsonWriter& j, const SharedData& d)
{
    j.beginObject();
    j.integer("formatVersion", d.version);
    j.text("header1", d.header1);
    j.text("header2", d.header2);
    j.beginObject("idCounters");
    j.integer("nextCustomFood", d.counters.values[0]);
    j.integer("nextUserVariable", d.counters.values[1]);
    j.integer("nextExerciseField", d.counters.values[2]);
    j.integer("nextExercise", d.counters.values[3]);
    j.integer("nextRoutine", d.counters.values[4]);
    j.integer("spare", d.counters.values[5]);
    j.endObject();
    j.integer("currentUserIndex", d.currentUser);
    j.beginArray("userNames");
    for (const auto& n : d.userNames)
        j.text(nullptr, n);
    j.endArray();
    j.beginArray("customFoods");
    for (const FoodItem& f : d.customFoods)
        dumpFood(j, f, nullptr, true);
    j.endArray();
    j.beginArray("exerciseFields");
    for (const ExerciseField& f : d.fields) {
        j.beginObject();
        j.integer("id", f.id);
        j.text("name", f.name);
        j.integer("kind", f.kind);
        if (f.kind >= 0 && f.kind < FieldKindCount)
            j.text("kindName", FieldKindNames[static_cast<std::size_t>(f.kind)]);
        j.endObject();
    }
    j.endArray();
    j.beginArray("exercises");
    for (const Exercise& e : d.exercises) {
        j.beginObject();
        j.integer("id", e.id);
        j.text("name", e.name);
        dumpIds(j, "fieldIds", e.fields);
        j.endObject();
    }
    j.endArray();
    j.beginArray("routines");
    for (const Routine& r : d.routines) {
        j.beginObject();
        j.integer("id", r.id);
        j.integer("calories", r.calories);
        j.text("name", r.name);
        dumpIds(j, "exerciseIds", r.exercises);
        j.endObject();
    }
    j.endArray();
    j.beginArray("userVariables");
    for (const UserVariable& v : d.variables) {
        j.beginObject();
        j.integer("id", v.id);
        j.text("name", v.name);
        j.real("lockedNumber", v.number);
        j.text("lockedText", v.text);
        j.time("lockedTime", v.time);
        j.integer("editNumberEveryTime", v.askNumber);
        j.integer("editTextEveryTime", v.askText);
        j.integer("editTimeEveryTime", v.askTime);
        j.endObject();
    }
    j.endArray();
    j.endObject();
}

template <std::size_t N>
void dumpIntArray(JsonWriter& j, const char* key, const std::array<std::int32_t, N>& a)
{
    j.beginArray(key);
    for (std::int32_t v : a)
        j.integer(nullptr, v);
    j.endArray();
}

void dumpUser(JsonWriter& j, const User& u)
{
    j.beginObject("profile");
    j.integer("formatVersion", u.version);
    j.integer("gender", u.gender);
    j.integer("activityLevel", u.activityLevel);
    j.real("weight", u.weight);
    j.integer("lifeStageVariable", u.lifeStageVariable);
    j.real("age", u.age);
    j.integer("changeWeight", u.changeWeight);
    j.integer("height", u.height);
    j.real("planStartWeight", u.planStartWeight);
    j.real("planEndWeight", u.planEndWeight);
    j.time("planStart", u.planStart);
    j.time("planEnd", u.planEnd);
    j.real("planDailyChangeKcal", u.dailyChange);
    j.beginArray("bodyGoals");
    for (float g : u.bodyGoals)
        j.real(nullptr, g);
    j.endArray();
    dumpIds(j, "goalNutrients", u.goalNutrients);
    j.beginArray("goalValues");
    for (float v : u.goalValues)
        j.real(nullptr, v);
    j.endArray();
    j.integer("alwaysShowYear", u.alwaysShowYear);
    j.integer("lifeStageGroup", u.lifeStageGroup);
    j.integer("unusedSetting", u.raw6c);
    j.integer("colour1", u.colour1);
    j.integer("colour2", u.colour2);
    j.integer("recentFoodsCount", u.recentFoodsCount);
    j.boolean("metric", u.metric != 0);
    j.integer("daysInLists", u.daysInLists);
    j.integer("pie1Mode", u.pie1Mode);
    j.integer("pie2Mode", u.pie2Mode);
    j.integer("foodListMode", u.foodListMode);
    dumpIntArray(j, "journalListNutrientColumns", u.listColumns);
    dumpIntArray(j, "journalListColumnWidths", u.listColumnWidths);
    dumpIntArray(j, "foodDetailsNutrients", u.detailsSlots);
    dumpIntArray(j, "fitnessLogFieldColumns", u.fitnessColumns);
    dumpIntArray(j, "fitnessLogColumnWidths", u.fitnessColumnWidths);
    dumpIntArray(j, "recentFoods", u.recentFoods);
    j.integer("trailingValue", u.trailing);
    j.endObject();
}

void dumpDay(JsonWriter& j, const JournalDay& d)
{
    j.beginObject();
    j.time("date", d.date);
    const HealthEntry& h = d.health;
    j.beginObject("health");
    j.time("wakeTime", h.wakeTime);
    j.real("height", h.height);
    j.real("weight", h.weight);
    j.real("systolic", h.systolic);
    j.real("diastolic", h.diastolic);
    j.real("sleepHours", h.sleep);
    j.real("pulse", h.pulse);
    j.real("bodyFatPercent", h.bodyFat);
    j.real("bmi", h.bmi);
    j.real("vo2Max", h.vo2Max);
    j.real("temperature", h.temperature);
    j.integer("mood", h.mood);
    static const char* const MeasurementNames[MeasurementCount] = {
        "neck",       "shoulders",  "chest",     "stomach",      "waist",
        "hips",       "rightBicep", "leftBicep", "rightForearm", "leftForearm",
        "rightThigh", "leftThigh",  "rightCalf", "leftCalf"};
    j.beginObject("measurements");
    for (std::size_t i = 0; i < MeasurementCount; ++i)
        j.real(MeasurementNames[i], h.measurements[i]);
    j.endObject();
    j.beginArray("variableUses");
    for (const VariableUse& v : h.variables) {
        j.beginObject();
        j.integer("variableId", v.variable);
        j.text("text", v.text);
        j.real("number", v.number);
        j.time("time", v.time);
        j.endObject();
    }
    j.endArray();
    j.endObject();
    j.beginArray("meals");
    for (const Meal& m : d.meals) {
        j.beginObject();
        j.time("time", m.time);
        j.integer("kind", m.kind);
        if (m.kind < MealKindCount)
            j.text("kindName", MealNames[m.kind]);
        j.beginArray("foods");
        for (const FoodEntry& e : m.entries) {
            j.beginObject();
            j.integer("foodNumber", e.food);
            j.real("amountIn100g", e.amount);
            j.endObject();
        }
        j.endArray();
        j.endObject();
    }
    j.endArray();
    j.beginArray("workouts");
    for (const WorkoutEntry& w : d.workouts) {
        j.beginObject();
        j.integer("routineId", w.routine);
        j.integer("calories", w.calories);
        j.time("time", w.time);
        j.text("notes", w.notes);
        j.beginArray("exercises");
        for (const ExerciseRecord& r : w.exercises) {
            j.beginObject();
            j.integer("exerciseId", r.exercise);
            j.integer("setNumber", r.setNumber);
            j.time("time", r.time);
            j.beginArray("values");
            for (const ExerciseValue& v : r.values) {
                j.beginObject();
                j.integer("fieldId", v.field);
                j.text("value", v.value);
                j.endObject();
            }
            j.endArray();
            j.endObject();
        }
        j.endArray();
        j.endObject();
    }
    j.endArray();
    j.beginObject("notes");
    for (std::size_t i = 0; i < NoteCategoryCount; ++i)
        j.text(NoteCategoryNames[i], d.notes[i]);
    j.endObject();
    j.endObject();
}

} // namespace

std::string foodsJson(const FoodDatabase& db)
{
    JsonWriter j;
    dumpFoods(j, db);
    return j.result();
}

std::string sharedJson(const SharedData& data)
{
    JsonWriter j;
    dumpShared(j, data);
    return j.result();
}

std::string userJson(const UserJournal& journal)
{
    JsonWriter j;
    j.beginObject();
    dumpUser(j, journal.user);
    j.beginArray("days");
    for (const JournalDay& d : journal.days)
        dumpDay(j, d);
    j.endArray();
    j.endObject();
    return j.result();
}

} // namespace velmora::model
