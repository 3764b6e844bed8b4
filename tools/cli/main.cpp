// velmora-cli: headless operations on the data files, built on the core library only.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "Json.h"
#include "model/FoodDatabase.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "model/UserDatabase.h"

#if defined(__linux__)
#include <unistd.h>
#endif

namespace fs = std::filesystem;
using namespace velmora::model;
using velmora::cli::JsonWriter;

namespace {

constexpr const char* MainHelp =
    "Usage: velmora-cli COMMAND [ARGUMENTS]\n"
    "\n"
    "Headless operations on Velmora's data files.\n"
    "\n"
    "Commands:\n"
    "  rewrite KIND IN OUT   read IN and write it unchanged to OUT\n"
    "  dump KIND FILE        print the content of FILE as JSON\n"
    "  resave [--data-dir DIR]\n"
    "                        load and save the data folder as the program does at start-up\n"
    "                        and shut-down\n"
    "\n"
    "KIND is one of: foods (foods.db), shared (velmora.db), user (a user's journal file).\n"
    "Run 'velmora-cli COMMAND --help' for the details of a command.\n";

constexpr const char* RewriteHelp =
    "Usage: velmora-cli rewrite KIND IN OUT\n"
    "\n"
    "Reads IN with the reader for KIND and writes what was read to OUT with the matching writer,\n"
    "without any normalisation. A canonical file is reproduced byte for byte. When IN cannot be\n"
    "read, the error is printed and OUT is neither created nor changed.\n"
    "\n"
    "KIND: foods (foods.db), shared (velmora.db), user (a user's journal file).\n";

constexpr const char* DumpHelp =
    "Usage: velmora-cli dump KIND FILE\n"
    "\n"
    "Prints the content of FILE as JSON on standard output. Texts are converted from\n"
    "Windows-1252 to UTF-8; times are shown in UTC.\n"
    "\n"
    "KIND: foods (foods.db), shared (velmora.db), user (a user's journal file).\n";

constexpr const char* ResaveHelp =
    "Usage: velmora-cli resave [--data-dir DIR]\n"
    "\n"
    "Does what the program does at start-up and shut-down: loads foods.db, velmora.db (or\n"
    "creates the example user when it is missing) and the current user's file from DIR, then\n"
    "writes velmora.db and the current user's file, normalisation included.\n"
    "DIR defaults to the folder that holds velmora-cli. Without foods.db nothing is loaded and\n"
    "nothing is written.\n";

bool wantsHelp(const std::vector<std::string>& args)
{
    for (const auto& a : args)
        if (a == "--help" || a == "-h")
            return true;
    return false;
}

int fail(const std::string& message)
{
    std::fprintf(stderr, "velmora-cli: %s\n", message.c_str());
    return 1;
}

int usage(const char* help)
{
    std::fputs(help, stderr);
    return 2;
}

bool knownKind(const std::string& kind)
{
    return kind == "foods" || kind == "shared" || kind == "user";
}

// Parses the bytes with the reader of kind and returns the writer's bytes, or the reader's error.
Result<std::vector<std::uint8_t>> reserialise(const std::string& kind,
                                              const std::vector<std::uint8_t>& bytes,
                                              const std::string& name)
{
    if (kind == "foods") {
        auto r = FoodDatabase::parse(bytes, name);
        if (!r)
            return r.error();
        return r.value().serialize();
    }
    if (kind == "shared") {
        auto r = SharedData::parse(bytes, name);
        if (!r)
            return r.error();
        return r.value().serialize();
    }
    auto r = UserJournal::parse(bytes, name);
    if (!r)
        return r.error();
    return r.value().serialize();
}

int rewrite(const std::vector<std::string>& args)
{
    if (wantsHelp(args)) {
        std::fputs(RewriteHelp, stdout);
        return 0;
    }
    if (args.size() != 3 || !knownKind(args[0]))
        return usage(RewriteHelp);
    auto bytes = readWholeFile(args[1]);
    if (!bytes)
        return fail(bytes.error().message());
    auto out = reserialise(args[0], bytes.value(), args[1]);
    if (!out)
        return fail(out.error().message());
    Status written = writeFileAtomically(args[2], out.value());
    if (!written)
        return fail(written.error().message());
    return 0;
}

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

int dump(const std::vector<std::string>& args)
{
    if (wantsHelp(args)) {
        std::fputs(DumpHelp, stdout);
        return 0;
    }
    if (args.size() != 2 || !knownKind(args[0]))
        return usage(DumpHelp);
    auto bytes = readWholeFile(args[1]);
    if (!bytes)
        return fail(bytes.error().message());
    JsonWriter j;
    if (args[0] == "foods") {
        auto r = FoodDatabase::parse(bytes.value(), args[1]);
        if (!r)
            return fail(r.error().message());
        dumpFoods(j, r.value());
    } else if (args[0] == "shared") {
        auto r = SharedData::parse(bytes.value(), args[1]);
        if (!r)
            return fail(r.error().message());
        dumpShared(j, r.value());
    } else {
        auto r = UserJournal::parse(bytes.value(), args[1]);
        if (!r)
            return fail(r.error().message());
        j.beginObject();
        dumpUser(j, r.value().user);
        j.beginArray("days");
        for (const JournalDay& d : r.value().days)
            dumpDay(j, d);
        j.endArray();
        j.endObject();
    }
    std::fwrite(j.result().data(), 1, j.result().size(), stdout);
    return 0;
}

fs::path programFolder(const char* argv0)
{
#if defined(__linux__)
    std::error_code ec;
    const fs::path self = fs::read_symlink("/proc/self/exe", ec);
    if (!ec)
        return self.parent_path();
#endif
    std::error_code ec2;
    const fs::path p = fs::absolute(argv0, ec2);
    return ec2 ? fs::current_path() : p.parent_path();
}

int resave(const std::vector<std::string>& args, const char* argv0)
{
    if (wantsHelp(args)) {
        std::fputs(ResaveHelp, stdout);
        return 0;
    }
    fs::path dir;
    if (args.empty()) {
        dir = programFolder(argv0);
    } else if (args.size() == 2 && args[0] == "--data-dir") {
        dir = args[1];
    } else {
        return usage(ResaveHelp);
    }
    Store store;
    store.setPaths(dir / "foods.db", dir);
    const Store::LoadReport report = store.load();
    if (report.foodsMissing)
        return fail((dir / "foods.db").string() +
                    ": the file does not exist; nothing was loaded or saved");
    // A damaged file has been moved aside by the load and what could be read completely is kept:
    // that is saved so the folder is whole again, and the damage is reported with a failing exit.
    for (const Store::DamagedFile& d : report.damaged) {
        std::string line = d.error.message();
        line += d.movedTo.empty() ? "; it could not be moved aside and is left as it is"
                                  : "; it was moved to " + d.movedTo.string();
        if (!d.backup.empty())
            line += "; a backup that reads completely is " + d.backup.string();
        fail(line);
    }
    int status = report.errors.empty() ? 0 : 1;
    if (report.damaged.empty() && !report.errors.empty())
        fail(report.errors.front().message());
    if (!store.loaded())
        return 1;
    if (Status shared = store.saveShared(true); !shared)
        status = fail(shared.error().message());
    if (Status user = store.saveCurrentUser(true); !user)
        status = fail(user.error().message());
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty())
        return usage(MainHelp);
    const std::string command = args.front();
    args.erase(args.begin());
    if (command == "--help" || command == "-h" || command == "help") {
        std::fputs(MainHelp, stdout);
        return 0;
    }
    if (command == "rewrite")
        return rewrite(args);
    if (command == "dump")
        return dump(args);
    if (command == "resave")
        return resave(args, argv[0]);
    std::fprintf(stderr, "velmora-cli: unknown command '%s'\n", command.c_str());
    return usage(MainHelp);
}
