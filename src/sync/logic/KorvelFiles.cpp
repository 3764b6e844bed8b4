#include "sync/logic/KorvelFiles.h"

#include <algorithm>

namespace velmora::sync {

namespace {

constexpr std::size_t MaxUserNames = 255;

struct DefaultField
{
    const char* name;
    std::int32_t kind; // 0 Number, 1 Text, 2 Time
};
constexpr DefaultField DefaultFields[] = {{"Reps", 0},     {"Weight", 0},  {"Pace", 1},
                                          {"Comment", 1},  {"Time", 2},    {"Level", 0},
                                          {"Location", 1}, {"Max. HR", 0}, {"Ave. HR", 0}};

constexpr const char* StrengthExercises[] = {
    "Bench Press", "Incline Press", "Shoulder Press",   "Lateral Raises", "Deadlift",
    "Pull-up",     "Row",           "Tricep Extention", "Squat",          "Leg Curl",
    "Chin-up",     "Preacher Curl", "Calf Raise"};

constexpr const char* CardioExercises[] = {"Running",
                                           "Treadmill",
                                           "Rowing",
                                           "Row Machine",
                                           "Cycling",
                                           "Cycling Machine",
                                           "Stair Climbing",
                                           "Stair Machine",
                                           "Elliptacle",
                                           "Downhill Skiing",
                                           "Cross-Country Skiing",
                                           "Ski Machine"};

void readDay(model::ArchiveReader& in, KorvelDay& day, bool withMeasurements)
{
    day.date = readSignedTime(in);
    readDayValues(in, day.values, withMeasurements);
    readWorkouts(in, day.workouts);
    day.note = in.text();
}

void writeDay(model::ArchiveWriter& out, const KorvelDay& day)
{
    writeSignedTime(out, day.date);
    writeDayValues(out, day.values);
    writeWorkouts(out, day.workouts);
    out.text(day.note);
}

} // namespace

void KorvelShared::fillDefaultDefinitions()
{
    if (definitions.fields.empty()) {
        for (const DefaultField& f : DefaultFields) {
            const auto id = static_cast<std::int32_t>(counters[Fields]++);
            definitions.fields.push_back(model::ExerciseField{id, f.name, f.kind});
        }
    }
    if (!definitions.exercises.empty())
        return;
    std::vector<std::int32_t> ids;
    for (const DefaultField& f : DefaultFields)
        for (const model::ExerciseField& field : definitions.fields)
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
            model::Exercise{static_cast<std::int32_t>(counters[Exercises]++), name, strength});
    for (const char* name : CardioExercises)
        definitions.exercises.push_back(
            model::Exercise{static_cast<std::int32_t>(counters[Exercises]++), name, cardio});
}

model::Result<KorvelShared> KorvelShared::parse(std::span<const std::uint8_t> bytes,
                                                const std::string& fileName)
{
    return model::parseArchive<KorvelShared>(bytes, fileName, [](model::ArchiveReader& in) {
        KorvelShared s;
        s.version = in.u32();
        s.header = in.text();
        for (std::uint32_t& c : s.counters)
            c = in.u32();
        s.currentUser = in.u8();
        const std::size_t names = in.u8();
        s.userNames.reserve(names);
        for (std::size_t i = 0; i < names; ++i)
            s.userNames.push_back(in.text());
        readDefinitions(in, s.definitions);
        return s;
    });
}

std::vector<std::uint8_t> KorvelShared::serialize() const
{
    model::ArchiveWriter out;
    out.u32(KorvelFormatVersion);
    out.text(header);
    for (std::uint32_t c : counters)
        out.u32(c);
    out.u8(currentUser);
    const std::size_t names = std::min(userNames.size(), MaxUserNames);
    out.u8(static_cast<std::uint8_t>(names));
    for (std::size_t i = 0; i < names; ++i)
        out.text(userNames[i]);
    writeDefinitions(out, definitions);
    return out.take();
}

model::Result<KorvelUser> KorvelUser::parse(std::span<const std::uint8_t> bytes,
                                            const std::string& fileName)
{
    return model::parseArchive<KorvelUser>(bytes, fileName, [](model::ArchiveReader& in) {
        KorvelUser u;
        const bool withMeasurements = u.profile.read(in) > KorvelLastVersionWithoutMeasurements;
        const std::size_t minDay = 4 + dayValuesMinSize(withMeasurements) + 4 + 1;
        u.days.resize(in.count(minDay));
        for (KorvelDay& d : u.days)
            readDay(in, d, withMeasurements);
        return u;
    });
}

std::vector<std::uint8_t> KorvelUser::serialize() const
{
    model::ArchiveWriter out;
    profile.write(out);
    out.count(days.size());
    for (const KorvelDay& d : days)
        writeDay(out, d);
    return out.take();
}

} // namespace velmora::sync
