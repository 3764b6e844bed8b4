#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <span>

#include "model/FileSystem.h"
#include "model/Result.h"

namespace velmora::model {

// What a file held when this program last read or wrote it, so that a save can tell whether
// someone else (a second program, a file-sync tool) has changed the file since.
struct FileStamp
{
    bool existed = false;        // false: there was no file
    std::uint64_t size = 0;      // bytes
    std::int64_t modifiedNs = 0; // modification time on disk, nanoseconds since 1970 UTC
    std::uint64_t hash = 0;      // contentHash of the bytes read or written

    // The stamp of bytes just read from path or just written there. The size and hash are those
    // of the bytes; the time is the file's as found now (0 when it cannot be found).
    static FileStamp of(const std::filesystem::path& path, std::span<const std::uint8_t> bytes,
                        FileSystem& files = realFileSystem());
    // The stamp of a file that did not exist when it was looked for.
    static FileStamp none() { return {}; }
};

// A 64-bit hash of bytes (FNV-1a) that tells contents apart; not meant against deliberate
// collisions.
std::uint64_t contentHash(std::span<const std::uint8_t> bytes);

// How the file on disk relates to a stamp.
enum class DiskChange
{
    Unchanged, // the same bytes (a new time alone, as after a copy of the same file, is no change)
    Changed,   // other bytes
    Removed,   // the stamp saw a file, there is none now
    Created,   // the stamp saw no file, there is one now
};

// Compares the file at path with what this program last read or wrote there: reads the file and
// compares its size and content hash. Fails with the file system's error (CannotOpen) when the
// file exists but cannot be read.
Result<DiskChange> changeSince(const std::filesystem::path& path, const FileStamp& stamp,
                               FileSystem& files = realFileSystem());

// Keeps the version now on disk beside the file as "<file>.conflict-YYYYMMDD-HHMMSS" (local time
// of now; "-2", "-3", ... added when such a file exists), before this program saves its own
// version over it. Never overwrites anything: the copy is created as a new file, with the
// permissions of the file. Returns the copy's path; NotFound when there is no file, CannotOpen
// when it cannot be read and CannotWrite when the copy cannot be made (no copy is left then).
Result<std::filesystem::path> keepOtherVersion(const std::filesystem::path& path,
                                               std::time_t now = std::time(nullptr),
                                               FileSystem& files = realFileSystem());

} // namespace velmora::model
