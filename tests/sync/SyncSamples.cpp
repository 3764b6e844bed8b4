#include "SyncSamples.h"

#include "model/DateText.h"

namespace velmora::test {

using namespace velmora::model;

NutrientCatalogue syncCatalogue()
{
    std::vector<NutrientDef> entries;
    for (NutrientId n : {418, 415, 417, 406, 405, 404, 394, 324, 401, 318, 306, 317, 410, 307,
                         312, 309, 303, 305, 304, 301, 291, 601, 606, 204, 203, 205, 208, 502})
        entries.push_back(NutrientDef{n, "g", "N" + std::to_string(n)});
    NutrientCatalogue c;
    c.setFileEntries(entries);
    return c;
}

namespace {

void setValue(const NutrientCatalogue& c, FoodItem& f, NutrientId n, float v)
{
    f.values[static_cast<std::size_t>(c.indexOf(n))] = v;
}

TimeT at(int day, int hour)
{
    return CalendarDate{2024, 3, day}.toTime() + hour * 3600;
}

WorkoutEntry workout(TimeT time, std::int32_t routine)
{
    WorkoutEntry w;
    w.routine = routine;
    w.calories = 320;
    w.time = time;
    w.notes = "steady";
    w.exercises = {{21, 0, time, {{11, "12"}, {12, "40"}}}, {21, 1, time + 300, {{11, "10"}}}};
    return w;
}

} // namespace

Desktop sampleDesktop(const NutrientCatalogue& catalogue)
{
    Desktop d;
    d.shared.counters.values = {70003, 32, 13, 22, 31, 5};
    d.shared.userNames = {"Dana"};

    FoodItem granola;
    granola.number = 70001;
    granola.name = "Granola";
    granola.servingWeight = 55.5f;
    setValue(catalogue, granola, 208, 420.5f);
    setValue(catalogue, granola, 203, 10.2f);
    setValue(catalogue, granola, 204, 15.0f);
    setValue(catalogue, granola, 291, 6.1f);
    setValue(catalogue, granola, 401, 2.5f);
    FoodItem shake = granola;
    shake.number = 70002;
    shake.name = "Shake";
    shake.values = {};
    shake.servingWeight = 300.0f;
    setValue(catalogue, shake, 208, 250.0f);
    setValue(catalogue, shake, 318, 1200.0f);
    d.shared.customFoods = {granola, shake};

    d.shared.fields = {{11, "Reps", 0}, {12, "Weight", 0}};
    d.shared.exercises = {{21, "Squat", {11, 12}}};
    d.shared.routines = {{30, 250, "Legs", {21}}};
    d.shared.variables = {{31, "Iron", 18.0f, "mg", at(1, 9), 0, 1, 1}};

    User& u = d.journal.user;
    u.goalNutrients = {208, 203, 204, 100, 307, 5000};
    u.goalValues = {2100.0f, 65.0f, 70.0f, 30.0f, 2300.0f, 7.0f};

    JournalDay tenth;
    tenth.date = at(10, 0);
    tenth.health.wakeTime = at(10, 7);
    tenth.health.weight = 71.5f;
    tenth.health.pulse = 58.0f;
    tenth.health.measurements[3] = 82.0f;
    tenth.health.variables = {{31, 18.0f, "mg", at(10, 9)}};
    tenth.meals = {{at(10, 8), 0, {{70001, 1.0f}, {1123, 0.5f}}}};
    tenth.workouts = {workout(at(10, 18), 30)};
    tenth.notes = {"p1", "", "d1", "f1"};

    JournalDay eleventh;
    eleventh.date = at(11, 0);
    eleventh.meals = {{at(11, 12), 2, {{70002, 2.0f}}}};
    eleventh.notes[2] = "d2";

    JournalDay twelfth;
    twelfth.date = at(12, 0);
    twelfth.notes[0] = "p3";

    // A second day of the same date, at 01:00 as an earlier import stamps its days.
    JournalDay twelfthAgain;
    twelfthAgain.date = at(12, 1);
    twelfthAgain.workouts = {workout(at(12, 19), 30)};

    d.journal.days = {tenth, eleventh, twelfth, twelfthAgain};
    return d;
}

std::vector<std::uint8_t> dayBytes(const JournalDay& day)
{
    ArchiveWriter out;
    writeJournalDay(out, day);
    return out.take();
}

std::vector<std::uint8_t> definitionBytes(const SharedData& shared)
{
    SharedData lists;
    lists.fields = shared.fields;
    lists.exercises = shared.exercises;
    lists.routines = shared.routines;
    lists.variables = shared.variables;
    return lists.serialize();
}

} // namespace velmora::test
