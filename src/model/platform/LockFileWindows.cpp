// FolderLock's part of Windows: LockFileEx on the lock file. See LockFile.h.
#include "model/platform/LockFile.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "model/platform/WindowsText.h"

namespace velmora::model::platform {

namespace fs = std::filesystem;

namespace {

// The lock covers one byte far past the end of the file, so that the holder's text stays
// readable by others (Windows locks keep others from reading the bytes they cover).
constexpr DWORD LockOffsetHigh = 0x40000000;

HANDLE handleOf(LockHandle h)
{
    return reinterpret_cast<HANDLE>(h);
}

} // namespace

std::optional<LockHandle> openLockFile(const fs::path& path, bool create, std::string& error)
{
    HANDLE h = ::CreateFileW(path.c_str(), GENERIC_READ | (create ? GENERIC_WRITE : 0),
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             create ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE) {
        error = lastErrorText();
        return std::nullopt;
    }
    return reinterpret_cast<LockHandle>(h);
}

// A lock of LockFileEx belongs to the handle: a second open of the file in this program
// conflicts as another program would.
bool tryLock(LockHandle h, bool exclusive, bool& busy)
{
    OVERLAPPED at{};
    at.OffsetHigh = LockOffsetHigh;
    const DWORD flags = LOCKFILE_FAIL_IMMEDIATELY | (exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0);
    if (::LockFileEx(handleOf(h), flags, 0, 1, 0, &at))
        return true;
    busy = ::GetLastError() == ERROR_LOCK_VIOLATION;
    return false;
}

void unlock(LockHandle h)
{
    OVERLAPPED at{};
    at.OffsetHigh = LockOffsetHigh;
    ::UnlockFileEx(handleOf(h), 0, 1, 0, &at);
}

void closeHandle(LockHandle h)
{
    ::CloseHandle(handleOf(h));
}

std::string readText(LockHandle h)
{
    std::string text;
    ::SetFilePointer(handleOf(h), 0, nullptr, FILE_BEGIN);
    char buffer[512];
    DWORD got = 0;
    while (text.size() < 4096 && ::ReadFile(handleOf(h), buffer, sizeof buffer, &got, nullptr) &&
           got > 0)
        text.append(buffer, got);
    return text;
}

bool replaceText(LockHandle h, const std::string& text)
{
    DWORD done = 0;
    return ::SetFilePointer(handleOf(h), 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER &&
           ::SetEndOfFile(handleOf(h)) &&
           ::WriteFile(handleOf(h), text.data(), static_cast<DWORD>(text.size()), &done, nullptr) &&
           done == text.size() && ::FlushFileBuffers(handleOf(h));
}

std::int64_t processId()
{
    return static_cast<std::int64_t>(::GetCurrentProcessId());
}

std::string hostName()
{
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    return ::GetComputerNameW(name, &size) ? utf8FromWide(std::wstring_view(name, size))
                                           : std::string();
}

} // namespace velmora::model::platform
