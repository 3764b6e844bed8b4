#include "model/KorvelFiles.h"

#include <algorithm>
#include <utility>

#include "model/Defaults.h"
#include "model/UserDatabase.h"

namespace velmora::model {

namespace {

constexpr const char* StrengthExercises[] = {
    "Bench Press", "Incline Press", "Shoulder Press",   "Lateral Raises", "Deadlift",
    "Pull-up",     "Row",           "Tricep Extention", "Squat",          "Leg Curl",
    "Chin-up",     "Preacher Curl", "Calf Raise"};

void readDay(ArchiveReader& in, KorvelDay& day, bool withMeasurements)
{
    day.date = readSignedTime(in);
    readDayValues(in, day.values, withMeasurements);
    readWorkouts(in, day.workouts);
    day.note = in.text();
}

void writeDay(ArchiveWriter& out, const KorvelDay& day)
{
    writeSignedTime(out, day.date);
    writeDayValues(out, day.values);
    writeWorkouts(out, day.workouts);
    out.text(day.note);
}

// Reads "korvel.dwb" into s part by part, each taken over whole: the header fields (version to
// user names), then the definition lists. parts counts the parts read.
void readShared(ArchiveReader& in, KorvelShared& s, int* parts = nullptr)
{
    readSharedHead(in, s);
    if (parts)
        *parts = 1;
    readDefinitions(in, s.definitions);
    if (parts)
        *parts = 2;
}

// Reads a user's file into u: the profile, then the days, each taken over whole.
void readUser(ArchiveReader& in, KorvelUser& u, int* parts = nullptr)
{
    KorvelProfile profile;
    const bool withMeasurements = profile.read(in) > KorvelLastVersionWithoutMeasurements;
    u.profile = profile;
    if (parts)
        *parts = 1;
    const std::size_t minDay = 4 + dayValuesMinSize(withMeasurements) + 4 + 1;
    std::vector<KorvelDay> days(in.count(minDay));
    for (KorvelDay& d : days)
        readDay(in, d, withMeasurements);
    u.days = std::move(days);
    if (parts)
        *parts = 2;
}

} // namespace

void KorvelShared::fillDefaultDefinitions()
{
    if (definitions.fields.empty()) {
        for (const DefaultField& f : defaultExerciseFields()) {
            const auto id = static_cast<std::int32_t>(counters[Fields]++);
            definitions.fields.push_back(ExerciseField{id, f.name, f.kind});
        }
    }
    if (!definitions.exercises.empty())
        return;
    std::vector<std::int32_t> ids;
    for (const DefaultField& f : defaultExerciseFields())
        for (const ExerciseField& field : definitions.fields)
            if (field.name == f.name) {
                ids.push_back(field.id);
                break;
            }
    // Strength exercises record the first four fields, cardio the last seven.
    const std::size_t n = ids.size();
    const std::vector<std::int32_t> strength(ids.begin(),
                                             ids.begin() + std::min<std::size_t>(4, n));
    const std::vector<std::int32_t> cardio(ids.begin() + (n > 7 ? n - 7 : 0), ids.end());
    for (const char* name : StrengthExercises)
        definitions.exercises.push_back(
            Exercise{static_cast<std::int32_t>(counters[Exercises]++), name, strength});
    for (const char* name : defaultEnduranceExercises())
        definitions.exercises.push_back(
            Exercise{static_cast<std::int32_t>(counters[Exercises]++), name, cardio});
}

Result<KorvelShared> KorvelShared::parse(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    return parseParts<KorvelShared>(bytes, fileName, readShared);
}

Salvaged<KorvelShared> KorvelShared::salvage(std::span<const std::uint8_t> bytes,
                                             const std::string& fileName)
{
    return salvageParts<KorvelShared>(bytes, fileName, readShared);
}

std::vector<std::uint8_t> KorvelShared::serialize() const
{
    ArchiveWriter out;
    writeSharedHead(out, KorvelFormatVersion, *this);
    writeDefinitions(out, definitions);
    return out.take();
}

Result<KorvelUser> KorvelUser::parse(std::span<const std::uint8_t> bytes,
                                     const std::string& fileName)
{
    return parseParts<KorvelUser>(bytes, fileName, readUser);
}

Salvaged<KorvelUser> KorvelUser::salvage(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    return salvageParts<KorvelUser>(bytes, fileName, readUser);
}

std::vector<std::uint8_t> KorvelUser::serialize() const
{
    ArchiveWriter out;
    profile.write(out);
    out.count(days.size());
    for (const KorvelDay& d : days)
        writeDay(out, d);
    return out.take();
}

} // namespace velmora::model
