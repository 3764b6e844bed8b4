#include "model/TandryFiles.h"

#include <algorithm>
#include <utility>

#include "model/UserDatabase.h"

namespace velmora::model {

namespace {

void readDay(ArchiveReader& in, TandryDay& day, bool withMeasurements)
{
    day.date = readSignedTime(in);
    readDayValues(in, day.values, withMeasurements);
    readMeals(in, day.meals);
    readWorkouts(in, day.workouts);
    day.note = in.text();
}

void writeDay(ArchiveWriter& out, const TandryDay& day)
{
    writeSignedTime(out, day.date);
    writeDayValues(out, day.values);
    writeMeals(out, day.meals);
    writeWorkouts(out, day.workouts);
    out.text(day.note);
}

// Reads "tandry.db" into s part by part, each part taken over whole: the header fields (version
// to user names), the foods, the definition lists. parts counts the parts read.
void readShared(ArchiveReader& in, TandryShared& s, int* parts = nullptr)
{
    TandryShared head;
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
    if (parts)
        *parts = 1;
    std::vector<TandryFood> foods(in.count(MinTandryFoodSize));
    for (TandryFood& f : foods)
        f.read(in);
    s.foods = std::move(foods);
    if (parts)
        *parts = 2;
    readDefinitions(in, s.definitions);
    if (parts)
        *parts = 3;
}

// Reads a user's file into u: the profile, then the days, each taken over whole.
void readUser(ArchiveReader& in, TandryUser& u, int* parts = nullptr)
{
    TandryProfile profile;
    const bool withMeasurements = profile.read(in) > TandryLastVersionWithoutMeasurements;
    u.profile = profile;
    if (parts)
        *parts = 1;
    const std::size_t minDay = 4 + dayValuesMinSize(withMeasurements) + 4 + 4 + 1;
    std::vector<TandryDay> days(in.count(minDay));
    for (TandryDay& d : days)
        readDay(in, d, withMeasurements);
    u.days = std::move(days);
    if (parts)
        *parts = 2;
}

} // namespace

Result<TandryShared> TandryShared::parse(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    return parseArchive<TandryShared>(bytes, fileName, [](ArchiveReader& in) {
        TandryShared s;
        readShared(in, s);
        return s;
    });
}

Salvaged<TandryShared> TandryShared::salvage(std::span<const std::uint8_t> bytes,
                                             const std::string& fileName)
{
    int parts = 0;
    auto out =
        salvageArchive<TandryShared>(bytes, fileName, [&parts](ArchiveReader& in, TandryShared& s) {
            readShared(in, s, &parts);
        });
    out.partsRead = parts;
    return out;
}

std::vector<std::uint8_t> TandryShared::serialize() const
{
    ArchiveWriter out;
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

Result<TandryUser> TandryUser::parse(std::span<const std::uint8_t> bytes,
                                     const std::string& fileName)
{
    return parseArchive<TandryUser>(bytes, fileName, [](ArchiveReader& in) {
        TandryUser u;
        readUser(in, u);
        return u;
    });
}

Salvaged<TandryUser> TandryUser::salvage(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    int parts = 0;
    auto out = salvageArchive<TandryUser>(
        bytes, fileName, [&parts](ArchiveReader& in, TandryUser& u) { readUser(in, u, &parts); });
    out.partsRead = parts;
    return out;
}

std::vector<std::uint8_t> TandryUser::serialize() const
{
    ArchiveWriter out;
    profile.write(out);
    out.count(days.size());
    for (const TandryDay& d : days)
        writeDay(out, d);
    return out.take();
}

} // namespace velmora::model
