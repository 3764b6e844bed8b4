// The file system of Windows behind FileSystem; the POSIX one is FileSystemPosix.cpp. CMake
// builds one of the two. Every path goes through the wide-character API, so that any name a
// user can give (a journal "Zoë.db", a folder under C:\Users\Zoë) is the file that Explorer shows.
#include "model/FileSystem.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <winioctl.h>

#include "model/platform/LinkReparseData.h"
#include "model/platform/WindowsText.h"

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

using platform::lastErrorText;
using platform::systemErrorText;

// Symbolic links followed before a chain is taken for a loop.
constexpr int MaxLinkDepth = 40;

// A file that others hold open a moment (a virus scanner, the search indexer, a backup or
// file-sync program reading the new file) makes a rename fail; it is tried again after these
// waits, about a second in all, before the save fails.
constexpr std::array<DWORD, 7> RenameRetryMs = {10, 20, 40, 80, 160, 320, 400};

// Attributes that the replaced file hands to the file that replaces it. Read-only is not among
// them: Windows refuses to replace a read-only file, and the save says so.
constexpr DWORD HandedAttributes =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

FileError osError(FileErrorCode code, const fs::path& path, const std::string& text)
{
    return FileError{code, path.string(), 0, text};
}

bool isMissing(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

HANDLE handleOf(FileHandle f)
{
    return reinterpret_cast<HANDLE>(f);
}

// Closes a handle at the end of a scope.
class ScopedHandle
{
public:
    explicit ScopedHandle(HANDLE h) : m_h(h) {}
    ~ScopedHandle()
    {
        if (valid())
            ::CloseHandle(m_h);
    }
    ScopedHandle(const ScopedHandle&) = delete;
    ScopedHandle& operator=(const ScopedHandle&) = delete;
    bool valid() const { return m_h != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return m_h; }

private:
    HANDLE m_h;
};

// Opens the file or folder itself for its facts, without any access to its content; links are
// followed unless noFollow.
HANDLE openForFacts(const fs::path& path, bool noFollow = false)
{
    return ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         nullptr, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS | (noFollow ? FILE_FLAG_OPEN_REPARSE_POINT : 0),
                         nullptr);
}

// The text of the symbolic link at path; nothing when path is no symbolic link.
std::optional<fs::path> linkText(const fs::path& path)
{
    ScopedHandle h(openForFacts(path, true));
    if (!h.valid())
        return std::nullopt;
    std::vector<std::uint8_t> data(MAXIMUM_REPARSE_DATA_BUFFER_SIZE);
    DWORD got = 0;
    if (!::DeviceIoControl(h.get(), FSCTL_GET_REPARSE_POINT, nullptr, 0, data.data(),
                           static_cast<DWORD>(data.size()), &got, nullptr))
        return std::nullopt;
    data.resize(got);
    const auto target = platform::symbolicLinkTarget(data);
    if (!target)
        return std::nullopt;
    return fs::path(std::wstring(target->begin(), target->end()));
}

std::int64_t nanosecondsSince1970(const FILETIME& t)
{
    // FILETIME counts 100 ns from 1601-01-01 UTC.
    constexpr std::int64_t From1601To1970 = 116444736000000000;
    const std::int64_t ticks =
        (static_cast<std::int64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime;
    return (ticks - From1601To1970) * 100;
}

// The access rules (the DACL) and the attributes of the file at `to` are given to the file at
// `from` that is about to replace it, as Windows' ReplaceFile does: a save leaves them as the
// user or an administrator set them, where POSIX systems keep the permission bits. Best effort:
// a file system without access rules (FAT, some network shares) has nothing to hand over.
void handOver(const fs::path& to, const fs::path& from)
{
    const DWORD attributes = ::GetFileAttributesW(to.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return;
    DWORD needed = 0;
    ::GetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    if (needed > 0) {
        std::vector<std::uint8_t> descriptor(needed);
        if (::GetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), needed,
                               &needed))
            ::SetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, descriptor.data());
    }
    if (const DWORD handed = attributes & HandedAttributes; handed != 0) {
        const DWORD own = ::GetFileAttributesW(from.c_str());
        if (own != INVALID_FILE_ATTRIBUTES)
            ::SetFileAttributesW(from.c_str(), (own & ~FILE_ATTRIBUTE_NORMAL) | handed);
    }
}

// FileRenameInfoEx and the layout of FILE_RENAME_INFO with its flags, as Windows 10 (1607) reads
// them; the headers offer them only to programs that require that version.
constexpr auto RenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
struct RenameInfo
{
    DWORD flags;
    HANDLE rootDirectory;
    DWORD fileNameLength; // bytes
    WCHAR fileName[1];
};

// Renames with the POSIX meaning (Windows 10 1607 and later, NTFS): the old `to` is replaced even
// while others hold it open, as long as they allow it to be deleted, which readers that keep a
// file open for long normally do. Returns the error code; ERROR_NOT_SUPPORTED where the system
// or the file system does not offer it (older Windows, FAT, Wine), and the caller then renames
// as MoveFileEx does.
DWORD renameReplacingOpenFile(const fs::path& from, const fs::path& to)
{
    ScopedHandle source(::CreateFileW(
        from.c_str(), DELETE | SYNCHRONIZE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!source.valid())
        return ::GetLastError();
    // The full name, in the form that is not limited to MAX_PATH.
    std::error_code ec;
    std::wstring target = fs::absolute(to, ec).make_preferred().wstring();
    if (ec)
        return ERROR_NOT_SUPPORTED;
    if (!target.starts_with(L"\\\\?\\"))
        target =
            target.starts_with(L"\\\\") ? L"\\\\?\\UNC\\" + target.substr(2) : L"\\\\?\\" + target;
    const std::size_t bytes = offsetof(RenameInfo, fileName) + (target.size() + 1) * sizeof(WCHAR);
    std::vector<std::uint8_t> buffer(bytes);
    auto* info = reinterpret_cast<RenameInfo*>(buffer.data());
    info->flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
    info->rootDirectory = nullptr;
    info->fileNameLength = static_cast<DWORD>(target.size() * sizeof(WCHAR));
    std::copy(target.begin(), target.end(), info->fileName);
    info->fileName[target.size()] = L'\0';
    if (::SetFileInformationByHandle(source.get(), RenameInfoEx, info, static_cast<DWORD>(bytes)))
        return ERROR_SUCCESS;
    const DWORD error = ::GetLastError();
    if (error == ERROR_INVALID_PARAMETER || error == ERROR_INVALID_FUNCTION ||
        error == ERROR_NOT_SUPPORTED)
        return ERROR_NOT_SUPPORTED;
    return error;
}

// Errors of a rename that another program's open handle causes, and that end when it closes it.
bool mayPass(DWORD error)
{
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
           error == ERROR_LOCK_VIOLATION;
}

class RealFileSystem final : public FileSystem
{
public:
    Result<fs::path> resolveLinks(const fs::path& path) override
    {
        fs::path p = path;
        for (int depth = 0; depth < MaxLinkDepth; ++depth) {
            // The link's own attributes: a link whose file is missing is still found.
            const DWORD attributes = ::GetFileAttributesW(p.c_str());
            if (attributes == INVALID_FILE_ATTRIBUTES) {
                const DWORD error = ::GetLastError();
                if (isMissing(error))
                    return p;
                return osError(FileErrorCode::CannotOpen, p, systemErrorText(error));
            }
            if (!(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
                return p;
            const auto target = linkText(p);
            if (!target)
                return p; // a reparse point that is no link (a cloud file) is the file itself
            p = target->is_absolute() ? *target : p.parent_path() / *target;
        }
        return osError(FileErrorCode::CannotOpen, path,
                       systemErrorText(ERROR_CANT_RESOLVE_FILENAME));
    }

    Result<FileFacts> facts(const fs::path& path) override
    {
        ScopedHandle h(openForFacts(path));
        if (!h.valid()) {
            const DWORD error = ::GetLastError();
            return osError(isMissing(error) ? FileErrorCode::NotFound : FileErrorCode::CannotOpen,
                           path, systemErrorText(error));
        }
        BY_HANDLE_FILE_INFORMATION info{};
        if (!::GetFileInformationByHandle(h.get(), &info))
            return osError(FileErrorCode::CannotOpen, path, lastErrorText());
        // Windows files carry no permission bits or owner ids: mode, owner and group keep the
        // values that mean "none".
        FileFacts f;
        f.size = (static_cast<std::uint64_t>(info.nFileSizeHigh) << 32) | info.nFileSizeLow;
        f.modifiedNs = nanosecondsSince1970(info.ftLastWriteTime);
        return f;
    }

    Status canWrite(const fs::path& path) override
    {
        const DWORD attributes = ::GetFileAttributesW(path.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) {
            const DWORD error = ::GetLastError();
            return osError(isMissing(error) ? FileErrorCode::NotFound : FileErrorCode::CannotWrite,
                           path, systemErrorText(error));
        }
        // The read-only attribute of a folder says nothing about its files; the folder's access
        // rules are met when a file is made in it.
        if ((attributes & FILE_ATTRIBUTE_READONLY) && !(attributes & FILE_ATTRIBUTE_DIRECTORY))
            return osError(FileErrorCode::CannotWrite, path, "the file is marked read-only");
        return Status::success();
    }

    Result<FileHandle> openRead(const fs::path& path) override
    {
        // Others may read, write, rename and delete the file while it is read, as a program
        // expects on Windows; a read takes a few milliseconds.
        HANDLE h = ::CreateFileW(path.c_str(), GENERIC_READ,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
        if (h == INVALID_HANDLE_VALUE) {
            const DWORD error = ::GetLastError();
            return osError(isMissing(error) ? FileErrorCode::NotFound : FileErrorCode::CannotOpen,
                           path, systemErrorText(error));
        }
        return reinterpret_cast<FileHandle>(h);
    }

    Result<FileHandle> createNew(const fs::path& path, unsigned) override
    {
        // The new file takes the folder's access rules, as every file made in it does; no
        // permission bits are imitated.
        HANDLE h = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
        if (h == INVALID_HANDLE_VALUE)
            return osError(FileErrorCode::CannotWrite, path, lastErrorText());
        return reinterpret_cast<FileHandle>(h);
    }

    Result<std::size_t> read(FileHandle file, std::span<std::uint8_t> buffer) override
    {
        DWORD got = 0;
        const DWORD want = static_cast<DWORD>(std::min<std::size_t>(buffer.size(), 1u << 30));
        if (!::ReadFile(handleOf(file), buffer.data(), want, &got, nullptr))
            return osError(FileErrorCode::CannotOpen, {}, lastErrorText());
        return static_cast<std::size_t>(got);
    }

    Status write(FileHandle file, std::span<const std::uint8_t> bytes) override
    {
        while (!bytes.empty()) {
            DWORD done = 0;
            const DWORD want = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
            if (!::WriteFile(handleOf(file), bytes.data(), want, &done, nullptr))
                return osError(FileErrorCode::CannotWrite, {}, lastErrorText());
            bytes = bytes.subspan(done);
        }
        return Status::success();
    }

    Status sync(FileHandle file) override
    {
        if (!::FlushFileBuffers(handleOf(file)))
            return osError(FileErrorCode::CannotWrite, {}, lastErrorText());
        return Status::success();
    }

    // Nothing to do: see handOver, which keeps the replaced file's access rules instead.
    Status setMode(FileHandle, unsigned) override { return Status::success(); }
    Status setOwner(FileHandle, std::int64_t, std::int64_t) override { return Status::success(); }

    Status close(FileHandle file) override
    {
        if (!::CloseHandle(handleOf(file)))
            return osError(FileErrorCode::CannotWrite, {}, lastErrorText());
        return Status::success();
    }

    Status rename(const fs::path& from, const fs::path& to) override
    {
        handOver(to, from);
        DWORD error = ERROR_SUCCESS;
        for (std::size_t attempt = 0;; ++attempt) {
            if (renameReplacingOpenFile(from, to) == ERROR_SUCCESS)
                return Status::success();
            if (::MoveFileExW(from.c_str(), to.c_str(),
                              MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
                return Status::success();
            error = ::GetLastError();
            if (!mayPass(error) || attempt == RenameRetryMs.size())
                break;
            ::Sleep(RenameRetryMs[attempt]);
        }
        return osError(FileErrorCode::CannotWrite, to, systemErrorText(error));
    }

    Status remove(const fs::path& path) override
    {
        if (!::DeleteFileW(path.c_str()))
            return osError(FileErrorCode::CannotWrite, path, lastErrorText());
        return Status::success();
    }

    // Windows syncs no folder on its own; MOVEFILE_WRITE_THROUGH above waits for the rename.
    Status syncFolder(const fs::path&) override { return Status::success(); }
};

} // namespace

FileSystem& realFileSystem()
{
    static RealFileSystem instance;
    return instance;
}

} // namespace velmora::model
