#pragma once

// What FolderLock asks of the operating system: the lock file opened, locked without waiting and
// read and written in place, and who this process is. POSIX systems: LockFilePosix.cpp (flock);
// Windows: LockFileWindows.cpp (LockFileEx). A lock of either kind belongs to the open file and
// ends with the process, however it ends.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace velmora::model::platform {

// An open lock file: a descriptor on POSIX systems, a HANDLE on Windows.
using LockHandle = std::intptr_t;

// Opens the lock file for reading, and with create also for writing (made when missing).
// error receives the system's text on failure.
std::optional<LockHandle> openLockFile(const std::filesystem::path& path, bool create,
                                       std::string& error);
// Takes the lock, shared or exclusive, without waiting. busy tells a lock held through another
// open of the file (in this process or another) from any other failure.
bool tryLock(LockHandle h, bool exclusive, bool& busy);
void unlock(LockHandle h);
void closeHandle(LockHandle h);
// The file's text (at most 4 KiB), and the text replaced and flushed to the disk.
std::string readText(LockHandle h);
bool replaceText(LockHandle h, const std::string& text);

std::int64_t processId();
// The computer's name, UTF-8.
std::string hostName();

} // namespace velmora::model::platform
