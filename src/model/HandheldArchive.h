#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "model/Archive.h"
#include "model/Journal.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// Record codecs shared by both handhelds' transfer files. The files use the archive encoding of
// the user database; the records of a day and the definition lists are stored exactly as the user
// database stores them, except that every time inside a day is a signed 32-bit count of seconds.

// The four definition lists, in the order in which every file stores them.
struct DefinitionLists
{
    std::vector<ExerciseField> fields;
    std::vector<Exercise> exercises;
    std::vector<Routine> routines;
    std::vector<UserVariable> variables;

    void clear() { *this = DefinitionLists{}; }
};

// A time of a handheld day record: signed 32 bits, so 1901-12-13 .. 2038-01-19.
TimeT readSignedTime(ArchiveReader& in);
void writeSignedTime(ArchiveWriter& out, TimeT t);
// True when t can be stored as a signed 32-bit time without changing.
bool fitsSignedTime(TimeT t);

// The smallest size of the day-values record without and with its block of fourteen
// measurements, for checking counts against the bytes left.
inline constexpr std::size_t dayValuesMinSize(bool withMeasurements)
{
    return 4 + 10 * 4 + 1 + (withMeasurements ? MeasurementCount * 4 : 0) + 4;
}

// The day-values record (a day's health entry): wake time, eight values, temperature, VO2 max,
// mood, then the fourteen measurements only when withMeasurements is set (older files lack
// them; they then read as 0), then the variable uses. The writer always writes the measurements.
// Readers throw ArchiveError with the offset where the bytes ran out or a count cannot fit.
void readDayValues(ArchiveReader& in, HealthEntry& h, bool withMeasurements);
void writeDayValues(ArchiveWriter& out, const HealthEntry& h);

// A counted list of meals: time, meal kind, then (food number, amount) pairs.
void readMeals(ArchiveReader& in, std::vector<Meal>& meals);
void writeMeals(ArchiveWriter& out, const std::vector<Meal>& meals);

// A counted list of a day's workouts: routine, calories, time, notes, then the exercise records.
void readWorkouts(ArchiveReader& in, std::vector<WorkoutEntry>& workouts);
void writeWorkouts(ArchiveWriter& out, const std::vector<WorkoutEntry>& workouts);

// The four definition lists as four counted lists. The reader replaces each list of d only once
// the whole list is read.
void readDefinitions(ArchiveReader& in, DefinitionLists& d);
void writeDefinitions(ArchiveWriter& out, const DefinitionLists& d);

// The head of both handhelds' shared files: version, header text, the id counters, the current
// user and the user names. The reader takes the head over into s only once it is read whole.
template <class Shared> void readSharedHead(ArchiveReader& in, Shared& s)
{
    Shared head;
    head.version = in.u32();
    head.header = in.text();
    for (std::uint32_t& c : head.counters)
        c = in.u32();
    head.currentUser = in.u8();
    const std::size_t names = in.u8();
    for (std::size_t i = 0; i < names; ++i)
        head.userNames.push_back(in.text());
    s.version = head.version;
    s.header = std::move(head.header);
    s.counters = head.counters;
    s.currentUser = head.currentUser;
    s.userNames = std::move(head.userNames);
}

// Writes at most MaxUserNames user names: the file's name count is one byte.
template <class Shared>
void writeSharedHead(ArchiveWriter& out, std::uint32_t version, const Shared& s)
{
    out.u32(version);
    out.text(s.header);
    for (std::uint32_t c : s.counters)
        out.u32(c);
    out.u8(s.currentUser);
    const std::size_t names = std::min(s.userNames.size(), MaxUserNames);
    out.u8(static_cast<std::uint8_t>(names));
    for (std::size_t i = 0; i < names; ++i)
        out.text(s.userNames[i]);
}

} // namespace velmora::model
