#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <span>
#include <vector>

#include "model/Result.h"

namespace velmora::model {

// Reads a whole file into memory. NotFound when it does not exist, CannotOpen when it cannot be
// read (the detail carries the operating system's text).
Result<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path);

// Whether a save keeps the file it replaces as the one backup generation "<file>.bak".
enum class KeepBackup
{
    No,
    Yes
};

// Writes a block of bytes to an open file: true when all were written, else false with errno set.
// Saving uses fwrite; tests hand in a writer that fails part-way, as a full disk does.
using BlockWriter = std::function<bool(std::FILE* file, std::span<const std::uint8_t> bytes)>;

// Replaces a file without ever destroying the old one before the new one is complete: writes a
// temporary file in the same folder, flushes it to the disk, then renames it over the target. With
// KeepBackup::Yes the file being replaced is first linked (or copied) to "<file>.bak", replacing
// the previous backup in one rename; a backup that cannot be made does not stop the save. On any
// failure the temporary file is removed, the old file is left as it was and CannotWrite is
// returned with the operating system's error text.
Status writeFileAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes,
                           KeepBackup keep = KeepBackup::No, const BlockWriter& writer = {});

// "<file>.bak" beside the file.
std::filesystem::path backupPathFor(const std::filesystem::path& path);

// Moves a damaged file out of the way as "<file>.damaged-YYYYMMDD-HHMMSS" (with "-2", "-3", ...
// added when such a file exists). Never overwrites and never deletes anything. Returns the new
// path, or CannotWrite with the operating system's text.
Result<std::filesystem::path> moveAside(const std::filesystem::path& path);

} // namespace velmora::model
