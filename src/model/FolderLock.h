#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "model/Result.h"

namespace velmora::model {

// The program that holds a data folder, as its lock file tells.
struct LockHolder
{
    std::int64_t processId = 0;
    std::string host;       // the computer's name
    std::int64_t since = 0; // when it took the folder, seconds since 1970-01-01 UTC
};

// One program per data folder: the lock file "velmora.lock" in the folder, held with a lock of
// the operating system (flock on POSIX systems, LockFileEx on Windows), so that a program that
// ends in any way, a crash included, releases it. The file names the holder (process id, host
// name, since when) so that a second program can say who has the folder open. A lock file that
// names a holder but whose lock is free was left by a program that did not end in order; it is
// stale and is taken over. The file itself stays in the folder; it is emptied on release.
class FolderLock
{
public:
    static constexpr const char* FileName = "velmora.lock";

    enum class Outcome
    {
        Taken,       // this program now holds the folder
        HeldByOther, // another program (or another FolderLock of this one) holds it
        Unavailable, // the lock file cannot be made or locked (a read-only folder, say)
    };
    struct Attempt
    {
        Outcome outcome = Outcome::Unavailable;
        LockHolder holder;     // HeldByOther: the holder; Taken with wasStale: the former holder
        bool wasStale = false; // Taken over from a program that did not release the folder
        FileError error;       // Unavailable: why, with the operating system's text
    };

    FolderLock() = default;
    ~FolderLock();
    FolderLock(FolderLock&& other) noexcept;
    FolderLock& operator=(FolderLock&& other) noexcept;
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // Tries once, without waiting, to take the folder for this program. A lock already held by
    // this object is released first.
    Attempt acquire(const std::filesystem::path& folder);
    // Empties the lock file and releases the lock; nothing when not held.
    void release();
    bool held() const { return m_handle != NoHandle; }
    const std::filesystem::path& folder() const { return m_folder; }

    // Who holds folder now; nullopt when nobody does (no lock file, or its lock is free).
    static std::optional<LockHolder> holderOf(const std::filesystem::path& folder);

    // "process 1234 on host, since 2026-11-22 17:05" (local time), for messages.
    static std::string holderText(const LockHolder& holder);

    // The lock file's text for a holder, and the holder a text names (nullopt for an empty or
    // foreign text).
    static std::string describe(const LockHolder& holder);
    static std::optional<LockHolder> parse(const std::string& text);

private:
    static constexpr std::intptr_t NoHandle = -1;
    std::intptr_t m_handle = NoHandle;
    std::filesystem::path m_folder;
};

} // namespace velmora::model
