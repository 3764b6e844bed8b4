#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Result.h"

namespace velmora::model {

enum class FileKind
{
    Foods,      // "foods.db"
    Shared,     // "velmora.db"
    User,       // a user's journal file
    Tandry,     // "tandry.db", the diet handheld's shared transfer file
    TandryUser, // a diet handheld user's file
    Korvel,     // "korvel.dwb", the workout handheld's shared transfer file
    KorvelUser  // a workout handheld user's file
};

// Everything the program knows how to do with one kind of file, registered once: the console
// tool's commands, the fuzz targets, the seed maker and the handling of damaged files all go
// through this table, so a new kind is one more row.
struct FileKindInfo
{
    FileKind kind;
    std::string_view name;        // the kind's name on the command line and of its fuzz target
    std::string_view description; // what the file is, for help texts
    // Reads the bytes completely and writes what was read: the writer's bytes, or where and why
    // reading stopped. A canonical file comes back byte for byte.
    Result<std::vector<std::uint8_t>> (*rewrite)(std::span<const std::uint8_t> bytes,
                                                 const std::string& fileName);
    // Reads what can be read completely from damaged bytes and writes it; partsRead tells how
    // many of the file's parts were read whole.
    Salvaged<std::vector<std::uint8_t>> (*salvage)(std::span<const std::uint8_t> bytes,
                                                   const std::string& fileName);
    // The content as JSON (see JsonDump.h), or the reader's error.
    Result<std::string> (*json)(std::span<const std::uint8_t> bytes, const std::string& fileName);
    // The writer's bytes of an empty record of this kind.
    std::vector<std::uint8_t> (*empty)();
};

// All kinds, in the order of the help texts.
std::span<const FileKindInfo> fileKinds();
// The row of a kind.
const FileKindInfo& fileKind(FileKind kind);
// The row whose name is given, or nullptr when no kind has that name.
const FileKindInfo* findFileKind(std::string_view name);
// The kinds' names joined with ", " for help and error texts.
std::string fileKindNames();

} // namespace velmora::model
