#include "model/FolderLock.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>

// ---- Platform section: process ids, host names and the operating system's file locks.
#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

#if defined(_WIN32)

using Handle = HANDLE;

// The lock covers one byte far past the end of the file, so that the holder's text stays
// readable by others (Windows locks keep others from reading the bytes they cover).
constexpr DWORD LockOffsetHigh = 0x40000000;

Handle toHandle(std::intptr_t h)
{
    return reinterpret_cast<Handle>(h);
}

std::string systemText()
{
    return std::system_category().message(static_cast<int>(::GetLastError()));
}

std::optional<Handle> openLockFile(const fs::path& path, bool create, std::string& error)
{
    Handle h = ::CreateFileW(path.wstring().c_str(), GENERIC_READ | (create ? GENERIC_WRITE : 0),
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             create ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE) {
        error = systemText();
        return std::nullopt;
    }
    return h;
}

// True when taken; busy tells a lock held elsewhere from another failure.
bool tryLock(Handle h, bool exclusive, bool& busy)
{
    OVERLAPPED at{};
    at.OffsetHigh = LockOffsetHigh;
    const DWORD flags = LOCKFILE_FAIL_IMMEDIATELY | (exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0);
    if (::LockFileEx(h, flags, 0, 1, 0, &at))
        return true;
    busy = ::GetLastError() == ERROR_LOCK_VIOLATION;
    return false;
}

void unlock(Handle h)
{
    OVERLAPPED at{};
    at.OffsetHigh = LockOffsetHigh;
    ::UnlockFileEx(h, 0, 1, 0, &at);
}

void closeHandle(Handle h)
{
    ::CloseHandle(h);
}

std::string readText(Handle h)
{
    std::string text;
    ::SetFilePointer(h, 0, nullptr, FILE_BEGIN);
    char buffer[512];
    DWORD got = 0;
    while (text.size() < 4096 && ::ReadFile(h, buffer, sizeof buffer, &got, nullptr) && got > 0)
        text.append(buffer, got);
    return text;
}

bool replaceText(Handle h, const std::string& text)
{
    DWORD done = 0;
    return ::SetFilePointer(h, 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER &&
           ::SetEndOfFile(h) &&
           ::WriteFile(h, text.data(), static_cast<DWORD>(text.size()), &done, nullptr) &&
           done == text.size() && ::FlushFileBuffers(h);
}

std::int64_t processId()
{
    return static_cast<std::int64_t>(::GetCurrentProcessId());
}

std::string hostName()
{
    char name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = sizeof name;
    return ::GetComputerNameA(name, &size) ? std::string(name, size) : std::string();
}

#else // POSIX

using Handle = int;

Handle toHandle(std::intptr_t h)
{
    return static_cast<Handle>(h);
}

std::optional<Handle> openLockFile(const fs::path& path, bool create, std::string& error)
{
    // Readable by all so that any program can say who holds the folder; it names no data.
    const int fd = create ? ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)
                          : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = std::strerror(errno);
        return std::nullopt;
    }
    return fd;
}

// flock belongs to the open file, not to the process: a second open of the file in this program
// conflicts as another program would, and closing some other descriptor of the file (as reading
// the holder does) leaves the lock alone, unlike fcntl's record locks.
bool tryLock(Handle fd, bool exclusive, bool& busy)
{
    for (;;) {
        if (::flock(fd, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
            return true;
        if (errno != EINTR)
            break;
    }
    busy = errno == EWOULDBLOCK;
    return false;
}

void unlock(Handle fd)
{
    ::flock(fd, LOCK_UN);
}

void closeHandle(Handle fd)
{
    ::close(fd);
}

std::string readText(Handle fd)
{
    std::string text;
    char buffer[512];
    off_t at = 0;
    while (text.size() < 4096) {
        const ssize_t n = ::pread(fd, buffer, sizeof buffer, at);
        if (n <= 0)
            break;
        text.append(buffer, static_cast<std::size_t>(n));
        at += n;
    }
    return text;
}

bool replaceText(Handle fd, const std::string& text)
{
    return ::ftruncate(fd, 0) == 0 &&
           ::pwrite(fd, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()) &&
           ::fsync(fd) == 0;
}

std::int64_t processId()
{
    return static_cast<std::int64_t>(::getpid());
}

std::string hostName()
{
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0)
        return {};
    return name;
}

#endif
// ---- End of the platform section.

// The holder's text of a lock file that is locked elsewhere. The holder writes it just after
// taking the lock, so an empty text is read again for a moment before it is taken as unknown.
LockHolder holderIn(Handle h)
{
    for (int attempt = 0; attempt < 20; ++attempt) {
        if (auto holder = FolderLock::parse(readText(h)))
            return *holder;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return {};
}

} // namespace

FolderLock::~FolderLock()
{
    release();
}

FolderLock::FolderLock(FolderLock&& other) noexcept
    : m_handle(std::exchange(other.m_handle, NoHandle)), m_folder(std::move(other.m_folder))
{
}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept
{
    if (this != &other) {
        release();
        m_handle = std::exchange(other.m_handle, NoHandle);
        m_folder = std::move(other.m_folder);
    }
    return *this;
}

FolderLock::Attempt FolderLock::acquire(const fs::path& folder)
{
    release();
    Attempt attempt;
    const fs::path path = folder / FileName;
    std::string error;
    const auto opened = openLockFile(path, true, error);
    if (!opened) {
        attempt.error = FileError{FileErrorCode::CannotWrite, path.string(), 0, error};
        return attempt;
    }
    const Handle h = *opened;
    bool busy = false;
    if (!tryLock(h, true, busy)) {
        if (busy) {
            attempt.outcome = Outcome::HeldByOther;
            attempt.holder = holderIn(h);
        } else {
            attempt.error = FileError{FileErrorCode::CannotWrite, path.string(), 0,
                                      "the folder's lock file cannot be locked"};
        }
        closeHandle(h);
        return attempt;
    }
    // A holder's text under a free lock is what a program that did not end in order left.
    if (auto former = parse(readText(h))) {
        attempt.wasStale = true;
        attempt.holder = *former;
    }
    // Were the text not written (a full disk), the folder is still held; others then cannot
    // name the holder.
    (void)replaceText(h, describe(LockHolder{processId(), hostName(), std::time(nullptr)}));
#if defined(_WIN32)
    m_handle = reinterpret_cast<std::intptr_t>(h);
#else
    m_handle = h;
#endif
    m_folder = folder;
    attempt.outcome = Outcome::Taken;
    return attempt;
}

void FolderLock::release()
{
    if (!held())
        return;
    const Handle h = toHandle(m_handle);
    (void)replaceText(h, {});
    unlock(h);
    closeHandle(h);
    m_handle = NoHandle;
    m_folder.clear();
}

std::optional<LockHolder> FolderLock::holderOf(const fs::path& folder)
{
    std::string error;
    const auto opened = openLockFile(folder / FileName, false, error);
    if (!opened)
        return std::nullopt;
    const Handle h = *opened;
    bool busy = false;
    std::optional<LockHolder> holder;
    if (tryLock(h, false, busy))
        unlock(h);
    else if (busy)
        holder = holderIn(h);
    closeHandle(h);
    return holder;
}

std::string FolderLock::holderText(const LockHolder& holder)
{
    std::string text = holder.processId > 0 ? "process " + std::to_string(holder.processId)
                                            : std::string("another process");
    if (!holder.host.empty())
        text += " on " + holder.host;
    if (holder.since > 0) {
        const std::time_t since = static_cast<std::time_t>(holder.since);
        std::tm fields{};
#if defined(_WIN32)
        localtime_s(&fields, &since);
#else
        localtime_r(&since, &fields);
#endif
        char when[32];
        std::strftime(when, sizeof when, "%Y-%m-%d %H:%M", &fields);
        text += std::string(", since ") + when;
    }
    return text;
}

std::string FolderLock::describe(const LockHolder& holder)
{
    if (holder.processId == 0)
        return {};
    return "process " + std::to_string(holder.processId) + "\nhost " + holder.host + "\nsince " +
           std::to_string(holder.since) + "\n";
}

std::optional<LockHolder> FolderLock::parse(const std::string& text)
{
    LockHolder h;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        const auto blank = line.find(' ');
        if (blank == std::string::npos)
            continue;
        const std::string key = line.substr(0, blank);
        const std::string value = line.substr(blank + 1);
        try {
            if (key == "process")
                h.processId = std::stoll(value);
            else if (key == "since")
                h.since = std::stoll(value);
            else if (key == "host")
                h.host = value;
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }
    if (h.processId <= 0)
        return std::nullopt;
    return h;
}

} // namespace velmora::model
