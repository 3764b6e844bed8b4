#include "model/HandheldArchive.h"

#include <limits>
#include <utility>

#include "model/DefinitionRecords.h"

namespace velmora::model {

namespace {

constexpr std::size_t MinMealSize = 4 + 1 + 4;
constexpr std::size_t MinWorkoutSize = 4 + 4 + 4 + 1 + 4;
constexpr std::size_t EntrySize = 4 + 4;
constexpr std::size_t MinVariableUseSize = 4 + 1 + 4 + 4;
constexpr std::size_t MinRecordSize = 4 + 4 + 4 + 4;
constexpr std::size_t MinValueSize = 4 + 1;

} // namespace

TimeT readSignedTime(ArchiveReader& in)
{
    return static_cast<TimeT>(in.i32());
}

void writeSignedTime(ArchiveWriter& out, TimeT t)
{
    out.i32(static_cast<std::int32_t>(t));
}

bool fitsSignedTime(TimeT t)
{
    return t >= std::numeric_limits<std::int32_t>::min() &&
           t <= std::numeric_limits<std::int32_t>::max();
}

void readDayValues(ArchiveReader& in, HealthEntry& h, bool withMeasurements)
{
    h.wakeTime = readSignedTime(in);
    h.height = in.f32();
    h.weight = in.f32();
    h.systolic = in.f32();
    h.diastolic = in.f32();
    h.sleep = in.f32();
    h.pulse = in.f32();
    h.bodyFat = in.f32();
    h.bmi = in.f32();
    h.temperature = in.f32(); // temperature comes before VO2 max, as in the user database
    h.vo2Max = in.f32();
    h.mood = in.i8();
    h.measurements.fill(0.0f);
    if (withMeasurements)
        for (float& m : h.measurements)
            m = in.f32();
    h.variables.resize(in.count(MinVariableUseSize));
    for (VariableUse& u : h.variables) {
        u.variable = in.i32();
        u.text = in.text();
        u.number = in.f32();
        u.time = readSignedTime(in);
    }
}

void writeDayValues(ArchiveWriter& out, const HealthEntry& h)
{
    writeSignedTime(out, h.wakeTime);
    for (float v : {h.height, h.weight, h.systolic, h.diastolic, h.sleep, h.pulse, h.bodyFat, h.bmi,
                    h.temperature, h.vo2Max})
        out.f32(v);
    out.i8(h.mood);
    for (float m : h.measurements)
        out.f32(m);
    out.count(h.variables.size());
    for (const VariableUse& u : h.variables) {
        out.i32(u.variable);
        out.text(u.text);
        out.f32(u.number);
        writeSignedTime(out, u.time);
    }
}

void readMeals(ArchiveReader& in, std::vector<Meal>& meals)
{
    meals.resize(in.count(MinMealSize));
    for (Meal& m : meals) {
        m.time = readSignedTime(in);
        m.kind = in.u8();
        m.entries.resize(in.count(EntrySize));
        for (FoodEntry& e : m.entries) {
            e.food = in.i32();
            e.amount = in.f32();
        }
    }
}

void writeMeals(ArchiveWriter& out, const std::vector<Meal>& meals)
{
    out.count(meals.size());
    for (const Meal& m : meals) {
        writeSignedTime(out, m.time);
        out.u8(m.kind);
        out.count(m.entries.size());
        for (const FoodEntry& e : m.entries) {
            out.i32(e.food);
            out.f32(e.amount);
        }
    }
}

void readWorkouts(ArchiveReader& in, std::vector<WorkoutEntry>& workouts)
{
    workouts.resize(in.count(MinWorkoutSize));
    for (WorkoutEntry& w : workouts) {
        w.routine = in.i32();
        w.calories = in.i32();
        w.time = readSignedTime(in);
        w.notes = in.text();
        w.exercises.resize(in.count(MinRecordSize));
        for (ExerciseRecord& r : w.exercises) {
            r.exercise = in.i32();
            r.setNumber = in.i32();
            r.time = readSignedTime(in);
            r.values.resize(in.count(MinValueSize));
            for (ExerciseValue& v : r.values) {
                v.field = in.i32();
                v.value = in.text();
            }
        }
    }
}

void writeWorkouts(ArchiveWriter& out, const std::vector<WorkoutEntry>& workouts)
{
    out.count(workouts.size());
    for (const WorkoutEntry& w : workouts) {
        out.i32(w.routine);
        out.i32(w.calories);
        writeSignedTime(out, w.time);
        out.text(w.notes);
        out.count(w.exercises.size());
        for (const ExerciseRecord& r : w.exercises) {
            out.i32(r.exercise);
            out.i32(r.setNumber);
            writeSignedTime(out, r.time);
            out.count(r.values.size());
            for (const ExerciseValue& v : r.values) {
                out.i32(v.field);
                out.text(v.value);
            }
        }
    }
}

void readDefinitions(ArchiveReader& in, DefinitionLists& d)
{
    // Each list is taken over whole, so a salvaging reader keeps only complete lists.
    readWholeDefinitionList(in, d.fields);
    readWholeDefinitionList(in, d.exercises);
    readWholeDefinitionList(in, d.routines);
    readWholeDefinitionList(in, d.variables);
}

void writeDefinitions(ArchiveWriter& out, const DefinitionLists& d)
{
    writeDefinitionList(out, d.fields);
    writeDefinitionList(out, d.exercises);
    writeDefinitionList(out, d.routines);
    writeDefinitionList(out, d.variables);
}

} // namespace velmora::model
