// Writes seed inputs for the fuzz targets with the project's own writers:
//   fuzz_make_seeds OUTDIR  ->  OUTDIR/<kind>/* for every kind of the file-kinds table

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "model/Defaults.h"
#include "model/FileKinds.h"
#include "model/FoodDatabase.h"
#include "model/KorvelFiles.h"
#include "model/TandryFiles.h"
#include "model/UserDatabase.h"

using namespace velmora::model;
namespace fs = std::filesystem;

namespace {

void put(const fs::path& file, const std::vector<std::uint8_t>& bytes)
{
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

FoodDatabase smallFoods()
{
    FoodDatabase db;
    db.setCatalogue({{203, "g", "Protein (g)"},
                     {204, "g", "Fat (g)"},
                     {205, "g", "Carbohydrate (g)"},
                     {208, "kcal", "Energy (kcal)"},
                     {291, "g", "Fiber (g)"},
                     {505, "g", "Lysine (g)"}});
    FoodItem egg;
    egg.number = 1123;
    egg.group = 100;
    egg.name = "Egg, whole, raw, fresh";
    egg.values[0] = 12.56f;
    egg.values[1] = 9.51f;
    egg.values[3] = 143.0f;
    egg.values[5] = 0.912f;
    egg.measures = {{50.0f, "large"}, {243.0f, "cup (4.86 large eggs)"}};
    db.addFood(egg);
    FoodItem bread = egg;
    bread.number = 18069;
    bread.group = 1800;
    bread.name = std::string("Bread, white, commercially prepared \xE9"); // a Windows-1252 byte
    bread.measures = {{25.0f, "slice"}};
    db.addFood(bread);
    db.addGroup({100, "Dairy and Egg Products"});
    db.addGroup({1800, "Baked Products"});
    db.addGroup({FoodDatabase::SourceGroupNumber, "USDA SR24"});
    IntakeRecord protein;
    protein.nutrient = 203;
    for (int g = 0; g < LifeStageGroupCount; ++g)
        protein.recommended[static_cast<std::size_t>(g)] = 10.0f + static_cast<float>(g);
    protein.setUpperLimit(6, 100.0f);
    db.addIntake(protein);
    return db;
}

UserJournal smallJournal()
{
    UserJournal j;
    j.user.goalNutrients = {208, 203};
    j.user.goalValues = {2000.0f, 56.0f};
    for (int d = 0; d < 3; ++d) {
        JournalDay day;
        day.date = 1700000000 + d * 86400;
        day.health.weight = 150.0f + static_cast<float>(d);
        day.health.variables.push_back({1, 2.5f, "with water", day.date});
        Meal meal;
        meal.kind = static_cast<std::uint8_t>(d);
        meal.time = day.date + 8 * 3600;
        meal.entries = {{1123, 1.0f}, {70000, 2.0f}};
        day.meals.push_back(meal);
        WorkoutEntry w;
        w.routine = 1;
        w.calories = 300;
        w.time = day.date + 18 * 3600;
        w.notes = "steady";
        w.exercises.push_back({1, 0, w.time, {{1, "10"}, {2, "135"}}});
        day.workouts.push_back(w);
        day.notes[2] = "ate well";
        j.days.push_back(day);
    }
    return j;
}

DefinitionLists handheldDefinitions()
{
    DefinitionLists d;
    d.fields = {{1, "Reps", 0}, {2, "Comment", 1}};
    d.exercises = {{1, "Squat", {1, 2}}};
    d.routines = {{1, 300, "Legs", {1}}};
    d.variables = {{1, "Vitamin C", 500.0f, "mg", 1262304000, 0, 1, 1}};
    return d;
}

// A handheld day's values and workouts, every record kind filled.
HealthEntry handheldValues()
{
    HealthEntry h;
    h.wakeTime = 1262329200;
    h.weight = 70.5f;
    h.pulse = 61.0f;
    h.mood = 3;
    h.measurements[4] = 80.0f;
    h.variables = {{1, 500.0f, "mg", 1262332800}};
    return h;
}

std::vector<WorkoutEntry> handheldWorkouts()
{
    WorkoutEntry w;
    w.routine = 1;
    w.calories = 300;
    w.time = 1262350800;
    w.notes = "easy";
    w.exercises = {{1, 0, 1262350800, {{1, "10"}, {2, "slow"}}}};
    return {w};
}

// A user file with its profile's record version (the first four bytes) replaced.
std::vector<std::uint8_t> withVersion(std::vector<std::uint8_t> bytes, std::uint32_t version)
{
    for (int i = 0; i < 4; ++i)
        bytes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(version >> (8 * i));
    return bytes;
}

void putHandheldSeeds(const fs::path& out)
{
    TandryShared tandry;
    tandry.header = "Tandry";
    tandry.counters = {70002, 2, 3, 2, 2, 0};
    tandry.userNames = {"Ann", "Bob"};
    TandryFood food;
    food.id = 70001;
    food.name = "Porridge";
    food.words = {2500, 1500, 50, 30, 1, 2, 3, 40, 5, 270};
    food.floats = {12.0f, 3.0f, 0.0f, 7.0f};
    food.measures = {{2500, "bowl"}};
    tandry.foods = {food};
    tandry.definitions = handheldDefinitions();
    put(out / "tandry" / "sample.db", tandry.serialize());

    TandryUser tandryUser;
    tandryUser.profile.goals[0] = 2000.0;
    tandryUser.profile.entries = {1, 2, 3};
    tandryUser.profile.dates = {1262304000, 1293840000};
    TandryDay tandryDay;
    tandryDay.date = 1262307600;
    tandryDay.values = handheldValues();
    tandryDay.meals = {{1262329200, 0, {{70001, 1.5f}, {1123, 0.5f}}}};
    tandryDay.workouts = handheldWorkouts();
    tandryDay.note = "good day";
    tandryUser.days = {tandryDay};
    put(out / "tandry-user" / "sample.db", tandryUser.serialize());
    // A profile of version 339 lacks its last setting (and days of such a file their
    // measurements): the empty file without its last setting.
    std::vector<std::uint8_t> old = TandryUser{}.serialize();
    old.erase(old.end() - 8, old.end() - 4);
    put(out / "tandry-user" / "version-339.db", withVersion(old, 339));

    KorvelShared korvel;
    korvel.header = "Korvel";
    korvel.userNames = {"Ann"};
    korvel.fillDefaultDefinitions();
    put(out / "korvel" / "defaults.dwb", korvel.serialize());
    KorvelShared small;
    small.definitions = handheldDefinitions();
    put(out / "korvel" / "sample.dwb", small.serialize());

    KorvelUser korvelUser;
    korvelUser.days = {{1262307600, handheldValues(), handheldWorkouts(), "legs"}};
    put(out / "korvel-user" / "sample.dwb", korvelUser.serialize());
    put(out / "korvel-user" / "version-300.dwb", withVersion(KorvelUser{}.serialize(), 300));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_make_seeds OUTDIR\n");
        return 2;
    }
    const fs::path out = argv[1];
    // Every kind of the table gets its empty record; the kinds below get richer samples too.
    for (const FileKindInfo& kind : fileKinds())
        put(out / std::string(kind.name) / "empty.db", kind.empty());

    put(out / "foods" / "small.db", smallFoods().serialize());

    SharedData shared;
    createExampleUser(shared);
    FoodItem custom;
    custom.number = shared.counters.take(IdCounters::CustomFood);
    custom.name = "Apple pie";
    custom.servingWeight = 150.0f;
    custom.values[0] = 3.0f;
    shared.customFoods.push_back(custom);
    shared.routines.push_back({1, 250, "Morning", {1, 2, 3}});
    shared.variables.push_back({1, "Vitamin c", 500.0f, "mg", 1700000000, 0, 1, 1});
    put(out / "shared" / "example.db", shared.serialize());

    put(out / "user" / "small.db", smallJournal().serialize());
    putHandheldSeeds(out);
    return 0;
}
