#include "sync/logic/TandryFiles.h"

#include <algorithm>

namespace velmora::sync {

namespace {

constexpr std::size_t MaxUserNames = 255;

void readDay(model::ArchiveReader& in, TandryDay& day, bool withMeasurements)
{
    day.date = readSignedTime(in);
    readDayValues(in, day.values, withMeasurements);
    readMeals(in, day.meals);
    readWorkouts(in, day.workouts);
    day.note = in.text();
}

void writeDay(model::ArchiveWriter& out, const TandryDay& day)
{
    writeSignedTime(out, day.date);
    writeDayValues(out, day.values);
    writeMeals(out, day.meals);
    writeWorkouts(out, day.workouts);
    out.text(day.note);
}

} // namespace

model::Result<TandryShared> TandryShared::parse(std::span<const std::uint8_t> bytes,
                                                const std::string& fileName)
{
    return model::parseArchive<TandryShared>(bytes, fileName, [](model::ArchiveReader& in) {
        TandryShared s;
        s.version = in.u32();
        s.header = in.text();
        for (std::uint32_t& c : s.counters)
            c = in.u32();
        s.currentUser = in.u8();
        const std::size_t names = in.u8();
        s.userNames.reserve(names);
        for (std::size_t i = 0; i < names; ++i)
            s.userNames.push_back(in.text());
        s.foods.resize(in.count(MinTandryFoodSize));
        for (TandryFood& f : s.foods)
            f.read(in);
        readDefinitions(in, s.definitions);
        return s;
    });
}

std::vector<std::uint8_t> TandryShared::serialize() const
{
    model::ArchiveWriter out;
    out.u32(TandryFormatVersion);
    out.text(header);
    for (std::uint32_t c : counters)
        out.u32(c);
    out.u8(currentUser);
    const std::size_t names = std::min(userNames.size(), MaxUserNames);
    out.u8(static_cast<std::uint8_t>(names));
    for (std::size_t i = 0; i < names; ++i)
        out.text(userNames[i]);
    out.count(foods.size());
    for (const TandryFood& f : foods)
        f.write(out);
    writeDefinitions(out, definitions);
    return out.take();
}

void TandryShared::releaseLists()
{
    foods.clear();
    definitions.clear();
}

model::Result<TandryUser> TandryUser::parse(std::span<const std::uint8_t> bytes,
                                            const std::string& fileName)
{
    return model::parseArchive<TandryUser>(bytes, fileName, [](model::ArchiveReader& in) {
        TandryUser u;
        const bool withMeasurements = u.profile.read(in) > TandryLastVersionWithoutMeasurements;
        const std::size_t minDay = 4 + dayValuesMinSize(withMeasurements) + 4 + 4 + 1;
        u.days.resize(in.count(minDay));
        for (TandryDay& d : u.days)
            readDay(in, d, withMeasurements);
        return u;
    });
}

std::vector<std::uint8_t> TandryUser::serialize() const
{
    model::ArchiveWriter out;
    profile.write(out);
    out.count(days.size());
    for (const TandryDay& d : days)
        writeDay(out, d);
    return out.take();
}

} // namespace velmora::sync
