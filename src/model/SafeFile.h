#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/FileSystem.h"
#include "model/Result.h"

namespace velmora::model {

// Reads a whole file into memory. NotFound when it does not exist, CannotOpen when it cannot be
// read (a folder in its place, no permission; the detail carries the operating system's text).
Result<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path,
                                                FileSystem& files = realFileSystem());

// Whether a save keeps the file it replaces as the one backup generation "<file>.bak".
enum class KeepBackup
{
    No,
    Yes
};

// Permission bits of a file that a save creates where none was: readable and writable by its
// owner only, since the files hold health data.
inline constexpr unsigned NewFileMode = 0600;

// Replaces a file without ever destroying the old one before the new one is complete: writes a
// temporary file beside the file, syncs it to the disk, renames it over the file and syncs the
// folder. The new file keeps the permission bits (and, where the system allows, the owner and
// group) of the file it replaces; a file that did not exist is created with NewFileMode. When path
// is a symbolic link the save happens at the file the link finally names, beside that file, and
// the link stays a link.
// With KeepBackup::Yes the file being replaced is first copied to "<path>.bak" (beside path as
// given, with the old file's permissions), replacing the previous backup in one rename; the backup
// is always a real copy, never a link. A backup that cannot be made does not stop the save: the
// previous backup then stays as it was.
// On any failure the temporary files are removed, the old file is left as it was (unless only the
// final folder sync failed, when the new content is in place but may not have reached the disk)
// and CannotWrite is returned with the operating system's error text. Every file-system call goes
// through files, which tests replace to make single calls fail.
Status writeFileAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes,
                           KeepBackup keep = KeepBackup::No, FileSystem& files = realFileSystem());

// "<file>.bak" beside the file.
std::filesystem::path backupPathFor(const std::filesystem::path& path);

// "YYYYMMDD-HHMMSS" of a moment in local time, as the dated names of kept files carry it.
std::string localTimeStamp(std::time_t now);

// "<file>.<label>-YYYYMMDD-HHMMSS" beside path (local time of now), with "-2", "-3", ... added
// when such a file exists: a name that no file has.
std::filesystem::path datedName(const std::filesystem::path& path, std::string_view label,
                                std::time_t now);

// Moves a file out of the way as "<file>.<label>-YYYYMMDD-HHMMSS" (local time of now; "-2", "-3",
// ... added when such a file exists): a damaged file as "damaged", a backup kept for the user as
// "backup". Never overwrites and never deletes anything. Returns the new path, or CannotWrite with
// the operating system's text.
Result<std::filesystem::path> moveAside(const std::filesystem::path& path,
                                        std::string_view label = "damaged",
                                        std::time_t now = std::time(nullptr),
                                        FileSystem& files = realFileSystem());

} // namespace velmora::model
