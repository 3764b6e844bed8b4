#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/Archive.h"
#include "model/Journal.h"

namespace velmora::sync {

// Record codecs shared by both handhelds' transfer files. The files use the archive encoding of
// the user database; the records of a day and the definition lists are stored exactly as the user
// database stores them, except that every time inside a day is a signed 32-bit count of seconds.

// The four definition lists, in the order in which every file stores them.
struct DefinitionLists
{
    std::vector<model::ExerciseField> fields;
    std::vector<model::Exercise> exercises;
    std::vector<model::Routine> routines;
    std::vector<model::UserVariable> variables;

    void clear() { *this = DefinitionLists{}; }
};

// A time of a handheld day record: signed 32 bits, so 1901-12-13 .. 2038-01-19.
model::TimeT readSignedTime(model::ArchiveReader& in);
void writeSignedTime(model::ArchiveWriter& out, model::TimeT t);
// True when t can be stored as a signed 32-bit time without changing.
bool fitsSignedTime(model::TimeT t);

// Smallest sizes of the records, for checking counts against the bytes left.
inline constexpr std::size_t MinMealSize = 4 + 1 + 4;
inline constexpr std::size_t MinWorkoutSize = 4 + 4 + 4 + 1 + 4;
// The day-values record without and with its block of fourteen measurements.
inline constexpr std::size_t dayValuesMinSize(bool withMeasurements)
{
    return 4 + 10 * 4 + 1 + (withMeasurements ? model::MeasurementCount * 4 : 0) + 4;
}

// The day-values record (a day's health entry): wake time, eight values, temperature, VO2 max,
// mood, then the fourteen measurements only when withMeasurements is set (older files lack
// them; they then read as 0), then the variable uses. The writer always writes the measurements.
// Readers throw model::ArchiveError with the offset where the bytes ran out or a count cannot fit.
void readDayValues(model::ArchiveReader& in, model::HealthEntry& h, bool withMeasurements);
void writeDayValues(model::ArchiveWriter& out, const model::HealthEntry& h);

// A counted list of meals: time, meal kind, then (food number, amount) pairs.
void readMeals(model::ArchiveReader& in, std::vector<model::Meal>& meals);
void writeMeals(model::ArchiveWriter& out, const std::vector<model::Meal>& meals);

// A counted list of a day's workouts: routine, calories, time, notes, then the exercise records.
void readWorkouts(model::ArchiveReader& in, std::vector<model::WorkoutEntry>& workouts);
void writeWorkouts(model::ArchiveWriter& out, const std::vector<model::WorkoutEntry>& workouts);

// The four definition lists as four counted lists.
void readDefinitions(model::ArchiveReader& in, DefinitionLists& d);
void writeDefinitions(model::ArchiveWriter& out, const DefinitionLists& d);

} // namespace velmora::sync
