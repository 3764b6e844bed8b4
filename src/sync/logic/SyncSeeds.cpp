#include "sync/logic/SyncSeeds.h"

#include "sync/logic/KorvelFiles.h"
#include "sync/logic/TandryFiles.h"

namespace velmora::sync {

namespace {

DefinitionLists sampleDefinitions()
{
    DefinitionLists d;
    d.fields = {{1, "Reps", 0}, {2, "Comment", 1}};
    d.exercises = {{1, "Squat", {1, 2}}};
    d.routines = {{1, 300, "Legs", {1}}};
    d.variables = {{1, "Vitamin C", 500.0f, "mg", 1262304000, 0, 1, 1}};
    return d;
}

model::HealthEntry sampleValues()
{
    model::HealthEntry h;
    h.wakeTime = 1262329200;
    h.weight = 70.5f;
    h.pulse = 61.0f;
    h.mood = 3;
    h.measurements[4] = 80.0f;
    h.variables = {{1, 500.0f, "mg", 1262332800}};
    return h;
}

std::vector<model::WorkoutEntry> sampleWorkouts()
{
    model::WorkoutEntry w;
    w.routine = 1;
    w.calories = 300;
    w.time = 1262350800;
    w.notes = "easy";
    w.exercises = {{1, 0, 1262350800, {{1, "10"}, {2, "slow"}}}};
    return {w};
}

// A user file with its profile's record version (the first four bytes) replaced.
std::vector<std::uint8_t> olderFile(std::vector<std::uint8_t> bytes, std::uint32_t version)
{
    bytes[0] = static_cast<std::uint8_t>(version);
    bytes[1] = static_cast<std::uint8_t>(version >> 8);
    return bytes;
}

} // namespace

std::vector<std::vector<std::uint8_t>> tandrySharedSeeds()
{
    TandryShared s;
    s.header = "Tandry";
    s.counters = {70002, 2, 3, 2, 2, 0};
    s.userNames = {"Ann", "Bob"};
    TandryFood f;
    f.id = 70001;
    f.name = "Porridge";
    f.words = {2500, 1500, 50, 30, 1, 2, 3, 40, 5, 270};
    f.floats = {12.0f, 3.0f, 0.0f, 7.0f};
    f.measures = {{2500, "bowl"}};
    s.foods = {f};
    s.definitions = sampleDefinitions();
    return {s.serialize(), TandryShared{}.serialize()};
}

std::vector<std::vector<std::uint8_t>> tandryUserSeeds()
{
    TandryUser u;
    u.profile.goals[0] = 2000.0;
    u.profile.entries = {1, 2, 3};
    u.profile.dates = {1262304000, 1293840000};
    TandryDay d;
    d.date = 1262307600;
    d.values = sampleValues();
    d.meals = {{1262329200, 0, {{70001, 1.5f}, {1123, 0.5f}}}};
    d.workouts = sampleWorkouts();
    d.note = "good day";
    u.days = {d};
    // A profile of version 339 lacks its last setting (and days of such a file their
    // measurements); the seed has no days.
    TandryUser old;
    std::vector<std::uint8_t> oldBytes = old.serialize();
    oldBytes.resize(oldBytes.size() - 4 - 4); // the last setting and the day count
    oldBytes.insert(oldBytes.end(), {0, 0, 0, 0});
    return {u.serialize(), TandryUser{}.serialize(), olderFile(oldBytes, 339)};
}

std::vector<std::vector<std::uint8_t>> korvelSharedSeeds()
{
    KorvelShared s;
    s.header = "Korvel";
    s.userNames = {"Ann"};
    s.fillDefaultDefinitions();
    KorvelShared small;
    small.definitions = sampleDefinitions();
    return {s.serialize(), small.serialize(), KorvelShared{}.serialize()};
}

std::vector<std::vector<std::uint8_t>> korvelUserSeeds()
{
    KorvelUser u;
    KorvelDay d;
    d.date = 1262307600;
    d.values = sampleValues();
    d.workouts = sampleWorkouts();
    d.note = "legs";
    u.days = {d};
    KorvelUser old;
    return {u.serialize(), KorvelUser{}.serialize(), olderFile(old.serialize(), 300)};
}

} // namespace velmora::sync
