#include "model/HandheldArchive.h"

#include <limits>
#include <utility>

#include "model/DefinitionRecords.h"
#include "model/HealthRecord.h"

namespace velmora::model {

namespace {

constexpr std::size_t MinMealSize = 4 + 1 + 4;
constexpr std::size_t MinWorkoutSize = 4 + 4 + 4 + 1 + 4;
constexpr std::size_t EntrySize = 4 + 4;
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
    readHealthRecord(in, h, withMeasurements, readSignedTime);
}

void writeDayValues(ArchiveWriter& out, const HealthEntry& h)
{
    writeHealthRecord(out, h, writeSignedTime);
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
