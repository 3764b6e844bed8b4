#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "model/Result.h"

namespace velmora::model {

// An open file of a FileSystem: a descriptor on POSIX systems, a HANDLE on Windows.
using FileHandle = std::intptr_t;

// What a save needs to know about the file it replaces.
struct FileFacts
{
    std::uint64_t size = 0;
    std::int64_t modifiedNs = 0; // modification time, nanoseconds since 1970-01-01 UTC
    unsigned mode = 0600;        // permission bits (POSIX); 0600 where the platform has none
    std::int64_t owner = -1;     // user id, -1 where the platform has none
    std::int64_t group = -1;     // group id, -1 where the platform has none
};

// Every file-system call that a save makes goes through this interface, so that tests can make
// any one of them fail (see tests/support/FailingFileSystem.h). The real implementation is
// realFileSystem(). All failures are FileErrors whose detail is the operating system's text;
// a file that does not exist is NotFound, a file that cannot be read CannotOpen, and every other
// failure CannotWrite.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    // Follows symbolic links (also chains of them) to the path of the file they finally name.
    // A path that is no link is returned as it is; a link to a missing file gives the missing
    // file's path, so that a save creates it.
    virtual Result<std::filesystem::path> resolveLinks(const std::filesystem::path& path) = 0;
    // Size, time, mode and owner of a file (links followed); NotFound when there is none.
    virtual Result<FileFacts> facts(const std::filesystem::path& path) = 0;
    // Whether this program may change the file at path, or make files in the folder at path, as
    // the operating system tells it (permissions, a file system mounted read-only); NotFound when
    // nothing is there, CannotWrite with the reason when it may not.
    virtual Status canWrite(const std::filesystem::path& path) = 0;

    virtual Result<FileHandle> openRead(const std::filesystem::path& path) = 0;
    // Creates a file that must not exist yet, open for writing, with the permission bits given.
    virtual Result<FileHandle> createNew(const std::filesystem::path& path, unsigned mode) = 0;
    // Reads up to buffer.size() bytes; 0 at the end of the file.
    virtual Result<std::size_t> read(FileHandle file, std::span<std::uint8_t> buffer) = 0;
    // Writes all the bytes (short writes are continued) or fails.
    virtual Status write(FileHandle file, std::span<const std::uint8_t> bytes) = 0;
    // Flushes the file's content and size to the disk.
    virtual Status sync(FileHandle file) = 0;
    virtual Status setMode(FileHandle file, unsigned mode) = 0;
    virtual Status setOwner(FileHandle file, std::int64_t owner, std::int64_t group) = 0;
    virtual Status close(FileHandle file) = 0;

    // Replaces `to` by `from` in one step (the old `to` is gone only once `from` is in place).
    virtual Status rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    virtual Status remove(const std::filesystem::path& path) = 0;
    // Makes the folder's entries (a rename into it) reach the disk.
    virtual Status syncFolder(const std::filesystem::path& folder) = 0;
};

// The operating system's file system.
FileSystem& realFileSystem();

} // namespace velmora::model
