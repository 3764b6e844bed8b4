#include "model/FileKinds.h"

#include <array>

#include "model/FoodDatabase.h"
#include "model/JsonDump.h"
#include "model/KorvelFiles.h"
#include "model/TandryFiles.h"
#include "model/UserDatabase.h"

namespace velmora::model {

namespace {

// One row's functions, made from the record type's parse, salvage and serialize and its JSON
// view.
template <class Record, std::string (*Json)(const Record&)> struct Row
{
    static Result<std::vector<std::uint8_t>> rewrite(std::span<const std::uint8_t> bytes,
                                                     const std::string& fileName)
    {
        auto read = Record::parse(bytes, fileName);
        if (!read)
            return read.error();
        return read.value().serialize();
    }

    static Salvaged<std::vector<std::uint8_t>> salvage(std::span<const std::uint8_t> bytes,
                                                       const std::string& fileName)
    {
        auto read = Record::salvage(bytes, fileName);
        return {read.value.serialize(), read.error, read.complete, read.partsRead, read.lists};
    }

    static Result<std::string> json(std::span<const std::uint8_t> bytes,
                                    const std::string& fileName)
    {
        auto read = Record::parse(bytes, fileName);
        if (!read)
            return read.error();
        return Json(read.value());
    }

    static std::vector<std::uint8_t> empty() { return Record{}.serialize(); }

    static constexpr FileKindInfo info(FileKind kind, std::string_view name,
                                       std::string_view description)
    {
        return {kind, name, description, &rewrite, &salvage, &json, &empty};
    }
};

constexpr std::array Kinds = {
    Row<FoodDatabase, foodsJson>::info(FileKind::Foods, "foods", "foods.db"),
    Row<SharedData, sharedJson>::info(FileKind::Shared, "shared", "velmora.db"),
    Row<UserJournal, userJson>::info(FileKind::User, "user", "a user's journal file"),
    Row<TandryShared, tandryJson>::info(FileKind::Tandry, "tandry", "tandry.db"),
    Row<TandryUser, tandryUserJson>::info(FileKind::TandryUser, "tandry-user",
                                          "a Tandry user's file"),
    Row<KorvelShared, korvelJson>::info(FileKind::Korvel, "korvel", "korvel.dwb"),
    Row<KorvelUser, korvelUserJson>::info(FileKind::KorvelUser, "korvel-user",
                                          "a Korvel user's file"),
};

} // namespace

std::span<const FileKindInfo> fileKinds()
{
    return Kinds;
}

const FileKindInfo& fileKind(FileKind kind)
{
    for (const FileKindInfo& k : Kinds)
        if (k.kind == kind)
            return k;
    return Kinds.front(); // every enumerator has a row
}

const FileKindInfo* findFileKind(std::string_view name)
{
    for (const FileKindInfo& k : Kinds)
        if (k.name == name)
            return &k;
    return nullptr;
}

std::string fileKindNames()
{
    std::string out;
    for (const FileKindInfo& k : Kinds) {
        if (!out.empty())
            out += ", ";
        out += k.name;
    }
    return out;
}

} // namespace velmora::model
