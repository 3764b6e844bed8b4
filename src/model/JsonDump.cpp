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

// The four definition lists, as the user database and both handheld files store them.
void dumpDefinitions(JsonWriter& j, const std::vector<ExerciseField>& fields,
                     const std::vector<Exercise>& exercises, const std::vector<Routine>& routines,
                     const std::vector<UserVariable>& variables)
{
    j.beginArray("exerciseFields");
    for (const ExerciseField& f : fields) {
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
    for (const Exercise& e : exercises) {
        j.beginObject();
        j.integer("id", e.id);
        j.text("name", e.name);
        dumpIds(j, "fieldIds", e.fields);
        j.endObject();
    }
    j.endArray();
    j.beginArray("routines");
    for (const Routine& r : routines) {
        j.beginObject();
        j.integer("id", r.id);
        j.integer("calories", r.calories);
        j.text("name", r.name);
        dumpIds(j, "exerciseIds", r.exercises);
        j.endObject();
    }
    j.endArray();
    j.beginArray("userVariables");
    for (const UserVariable& v : variables) {
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
    dumpDefinitions(j, d.fields, d.exercises, d.routines, d.variables);
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

void dumpHealth(JsonWriter& j, const char* key, const HealthEntry& h)
{
    j.beginObject(key);
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
}

void dumpMeals(JsonWriter& j, const std::vector<Meal>& meals)
{
    j.beginArray("meals");
    for (const Meal& m : meals) {
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
}

void dumpWorkouts(JsonWriter& j, const std::vector<WorkoutEntry>& workouts)
{
    j.beginArray("workouts");
    for (const WorkoutEntry& w : workouts) {
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
}

void dumpDay(JsonWriter& j, const JournalDay& d)
{
    j.beginObject();
    j.time("date", d.date);
    dumpHealth(j, "health", d.health);
    dumpMeals(j, d.meals);
    dumpWorkouts(j, d.workouts);
    j.beginObject("notes");
    for (std::size_t i = 0; i < NoteCategoryCount; ++i)
        j.text(NoteCategoryNames[i], d.notes[i]);
    j.endObject();
    j.endObject();
}

// The handheld files' records.

template <class T, std::size_t N>
void dumpArray(JsonWriter& j, const char* key, const std::array<T, N>& a)
{
    j.beginArray(key);
    for (T v : a)
        j.integer(nullptr, v);
    j.endArray();
}

void dumpHandheldUsers(JsonWriter& j, std::uint8_t currentUser,
                       const std::vector<std::string>& userNames)
{
    j.integer("currentUserIndex", currentUser);
    j.beginArray("userNames");
    for (const auto& n : userNames)
        j.text(nullptr, n);
    j.endArray();
}

void dumpTandryFood(JsonWriter& j, const TandryFood& f)
{
    j.beginObject();
    j.integer("id", f.id);
    j.text("name", f.name);
    // Every value index: what the file stores (tenths; absent for the computed ones) and the value
    // in its unit.
    j.beginArray("values");
    for (int i = 0; i < TandryValueCount; ++i) {
        j.beginObject();
        j.integer("index", i);
        if (const NutrientId n = TandryValueNutrients[static_cast<std::size_t>(i)]; n != 0)
            j.integer("nutrient", n);
        if (TandryFood::isStored(i))
            j.number("stored", f.stored(i));
        j.real("value", static_cast<float>(f.value(i))); // as the desktop takes it
        j.endObject();
    }
    j.endArray();
    j.beginArray("measures");
    for (const TandryMeasure& m : f.measures) {
        j.beginObject();
        j.integer("amountInTenthsOfGrams", m.amount);
        j.text("text", m.text);
        j.endObject();
    }
    j.endArray();
    j.endObject();
}

void dumpTandryProfile(JsonWriter& j, const TandryProfile& p)
{
    j.beginObject("profile");
    j.integer("formatVersion", p.version);
    dumpArray(j, "settings2", p.settings2);
    j.integer("setting4", p.setting4);
    dumpArray(j, "settings5", p.settings5);
    dumpArray(j, "settings8", p.settings8);
    dumpArray(j, "settings11", p.settings11);
    dumpArray(j, "settings18", p.settings18);
    j.integer("setting22", p.setting22);
    dumpArray(j, "settings23", p.settings23);
    j.integer("setting25", p.setting25);
    j.beginArray("goals");
    for (std::size_t k = 0; k < p.goals.size(); ++k) {
        j.beginObject();
        j.integer("nutrient", TandryGoalNutrients[k]);
        j.number("value", p.goals[k]);
        j.endObject();
    }
    j.endArray();
    dumpArray(j, "settings27", p.settings27);
    j.beginArray("dates");
    for (TimeT t : p.dates)
        j.time(nullptr, t);
    j.endArray();
    j.integer("setting29", p.setting29);
    j.beginArray("listEntries");
    for (std::uint32_t e : p.entries)
        j.integer(nullptr, e);
    j.endArray();
    dumpArray(j, "settings31", p.settings31);
    dumpArray(j, "settings32", p.settings32);
    j.integer("lastSetting", p.lastSetting);
    j.endObject();
}

void dumpKorvelProfile(JsonWriter& j, const KorvelProfile& p)
{
    j.beginObject("profile");
    j.integer("formatVersion", p.version);
    dumpArray(j, "settings2", p.settings2);
    j.integer("setting4", p.setting4);
    dumpArray(j, "settings5", p.settings5);
    dumpArray(j, "settings8", p.settings8);
    dumpArray(j, "settings11", p.settings11);
    dumpArray(j, "settings15", p.settings15);
    dumpArray(j, "settings18", p.settings18);
    j.integer("setting20", p.setting20);
    dumpArray(j, "settings21", p.settings21);
    j.integer("setting24", p.setting24);
    j.endObject();
}

// A handheld day: what a desktop day holds, with the handheld's one note.
template <class Day>
void dumpHandheldDay(JsonWriter& j, const Day& d, const std::vector<Meal>* meals)
{
    j.beginObject();
    j.time("date", d.date);
    dumpHealth(j, "dayValues", d.values);
    if (meals)
        dumpMeals(j, *meals);
    dumpWorkouts(j, d.workouts);
    j.text("note", d.note);
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

std::string tandryJson(const TandryShared& data)
{
    JsonWriter j;
    j.beginObject();
    j.integer("formatVersion", data.version);
    j.text("header", data.header);
    // The desktop's six counters, in the same order.
    j.beginObject("idCounters");
    j.integer("nextCustomFood", data.counters[0]);
    j.integer("nextUserVariable", data.counters[1]);
    j.integer("nextExerciseField", data.counters[2]);
    j.integer("nextExercise", data.counters[3]);
    j.integer("nextRoutine", data.counters[4]);
    j.integer("spare", data.counters[5]);
    j.endObject();
    dumpHandheldUsers(j, data.currentUser, data.userNames);
    j.beginArray("foods");
    for (const TandryFood& f : data.foods)
        dumpTandryFood(j, f);
    j.endArray();
    dumpDefinitions(j, data.definitions.fields, data.definitions.exercises,
                    data.definitions.routines, data.definitions.variables);
    j.endObject();
    return j.result();
}

std::string tandryUserJson(const TandryUser& user)
{
    JsonWriter j;
    j.beginObject();
    dumpTandryProfile(j, user.profile);
    j.beginArray("days");
    for (const TandryDay& d : user.days)
        dumpHandheldDay(j, d, &d.meals);
    j.endArray();
    j.endObject();
    return j.result();
}

std::string korvelJson(const KorvelShared& data)
{
    JsonWriter j;
    j.beginObject();
    j.integer("formatVersion", data.version);
    j.text("header", data.header);
    // The desktop's third to sixth counters.
    j.beginObject("idCounters");
    j.integer("nextExerciseField", data.counters[0]);
    j.integer("nextExercise", data.counters[1]);
    j.integer("nextRoutine", data.counters[2]);
    j.integer("spare", data.counters[3]);
    j.endObject();
    dumpHandheldUsers(j, data.currentUser, data.userNames);
    dumpDefinitions(j, data.definitions.fields, data.definitions.exercises,
                    data.definitions.routines, data.definitions.variables);
    j.endObject();
    return j.result();
}

std::string korvelUserJson(const KorvelUser& user)
{
    JsonWriter j;
    j.beginObject();
    dumpKorvelProfile(j, user.profile);
    j.beginArray("days");
    for (const KorvelDay& d : user.days)
        dumpHandheldDay(j, d, nullptr);
    j.endArray();
    j.endObject();
    return j.result();
}

} // namespace velmora::model
