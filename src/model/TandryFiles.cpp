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
    readSharedHead(in, s);
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
    return parseParts<TandryShared>(bytes, fileName, readShared);
}

Salvaged<TandryShared> TandryShared::salvage(std::span<const std::uint8_t> bytes,
                                             const std::string& fileName)
{
    return salvageParts<TandryShared>(bytes, fileName, readShared);
}

std::vector<std::uint8_t> TandryShared::serialize() const
{
    ArchiveWriter out;
    writeSharedHead(out, TandryFormatVersion, *this);
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
    return parseParts<TandryUser>(bytes, fileName, readUser);
}

Salvaged<TandryUser> TandryUser::salvage(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    return salvageParts<TandryUser>(bytes, fileName, readUser);
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
