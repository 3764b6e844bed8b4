#include "model/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>
#include <system_error>

// ---- Platform section: the only place of the core that calls the operating system's file API.
#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

// Symbolic links followed before a chain is taken for a loop.
constexpr int MaxLinkDepth = 40;

FileError osError(FileErrorCode code, const fs::path& path, const std::string& text)
{
    return FileError{code, path.string(), 0, text};
}

#if defined(_WIN32)

std::string lastErrorText()
{
    return std::system_category().message(static_cast<int>(::GetLastError()));
}

HANDLE handleOf(FileHandle f)
{
    return reinterpret_cast<HANDLE>(f);
}

class RealFileSystem final : public FileSystem
{
public:
    Result<fs::path> resolveLinks(const fs::path& path) override
    {
        fs::path p = path;
        for (int depth = 0; depth < MaxLinkDepth; ++depth) {
            std::error_code ec;
            if (!fs::is_symlink(p, ec))
                return p;
            const fs::path target = fs::read_symlink(p, ec);
            if (ec)
                return osError(FileErrorCode::CannotOpen, p, ec.message());
            p = target.is_absolute() ? target : p.parent_path() / target;
        }
        return osError(FileErrorCode::CannotOpen, path, "too many levels of symbolic links");
    }

    Result<FileFacts> facts(const fs::path& path) override
    {
        std::error_code ec;
        const auto status = fs::status(path, ec);
        if (!fs::exists(status))
            return osError(FileErrorCode::NotFound, path, "the file does not exist");
        FileFacts f;
        f.size = fs::file_size(path, ec);
        if (ec)
            return osError(FileErrorCode::CannotOpen, path, ec.message());
        const auto t = fs::last_write_time(path, ec);
        if (ec)
            return osError(FileErrorCode::CannotOpen, path, ec.message());
        const auto utc = std::chrono::clock_cast<std::chrono::system_clock>(t);
        f.modifiedNs =
            std::chrono::duration_cast<std::chrono::nanoseconds>(utc.time_since_epoch()).count();
        return f;
    }

    Status canWrite(const fs::path& path) override
    {
        const DWORD attributes = ::GetFileAttributesW(path.wstring().c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) {
            const DWORD err = ::GetLastError();
            return osError(err == ERROR_FILE_NOT_FOUND || err == ERROR_PATH_NOT_FOUND
                               ? FileErrorCode::NotFound
                               : FileErrorCode::CannotWrite,
                           path, std::system_category().message(static_cast<int>(err)));
        }
        // The read-only attribute of a folder says nothing about its files.
        if ((attributes & FILE_ATTRIBUTE_READONLY) && !(attributes & FILE_ATTRIBUTE_DIRECTORY))
            return osError(FileErrorCode::CannotWrite, path, "the file is marked read-only");
        return Status::success();
    }

    Result<FileHandle> openRead(const fs::path& path) override
    {
        HANDLE h = ::CreateFileW(path.wstring().c_str(), GENERIC_READ,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (h == INVALID_HANDLE_VALUE) {
            const DWORD err = ::GetLastError();
            return osError(err == ERROR_FILE_NOT_FOUND || err == ERROR_PATH_NOT_FOUND
                               ? FileErrorCode::NotFound
                               : FileErrorCode::CannotOpen,
                           path, std::system_category().message(static_cast<int>(err)));
        }
        return reinterpret_cast<FileHandle>(h);
    }

    Result<FileHandle> createNew(const fs::path& path, unsigned) override
    {
        // The new file takes the folder's access rules, as every file made in it does.
        HANDLE h = ::CreateFileW(path.wstring().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
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

    // Windows files carry no POSIX permission bits or owner ids; a new file takes the folder's
    // access rules, which is what the replaced file had.
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
        if (!::MoveFileExW(from.wstring().c_str(), to.wstring().c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return osError(FileErrorCode::CannotWrite, to, lastErrorText());
        return Status::success();
    }

    Status remove(const fs::path& path) override
    {
        if (!::DeleteFileW(path.wstring().c_str()))
            return osError(FileErrorCode::CannotWrite, path, lastErrorText());
        return Status::success();
    }

    // MOVEFILE_WRITE_THROUGH above already waits for the folder's entry.
    Status syncFolder(const fs::path&) override { return Status::success(); }
};

#else // POSIX

std::string errnoText(int err)
{
    return std::strerror(err);
}

int fdOf(FileHandle f)
{
    return static_cast<int>(f);
}

std::int64_t modifiedNsOf(const struct stat& st)
{
#if defined(__APPLE__)
    const auto& t = st.st_mtimespec;
#else
    const auto& t = st.st_mtim;
#endif
    return static_cast<std::int64_t>(t.tv_sec) * 1000000000 + t.tv_nsec;
}

class RealFileSystem final : public FileSystem
{
public:
    Result<fs::path> resolveLinks(const fs::path& path) override
    {
        fs::path p = path;
        for (int depth = 0; depth < MaxLinkDepth; ++depth) {
            struct stat st
            {
            };
            if (::lstat(p.c_str(), &st) != 0) {
                if (errno == ENOENT)
                    return p;
                return osError(FileErrorCode::CannotOpen, p, errnoText(errno));
            }
            if (!S_ISLNK(st.st_mode))
                return p;
            std::string target(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 255) + 1,
                               '\0');
            const ssize_t n = ::readlink(p.c_str(), target.data(), target.size());
            if (n < 0)
                return osError(FileErrorCode::CannotOpen, p, errnoText(errno));
            target.resize(static_cast<std::size_t>(n));
            const fs::path t = target;
            p = t.is_absolute() ? t : p.parent_path() / t;
        }
        return osError(FileErrorCode::CannotOpen, path, errnoText(ELOOP));
    }

    Result<FileFacts> facts(const fs::path& path) override
    {
        struct stat st
        {
        };
        if (::stat(path.c_str(), &st) != 0)
            return osError(errno == ENOENT ? FileErrorCode::NotFound : FileErrorCode::CannotOpen,
                           path, errnoText(errno));
        FileFacts f;
        f.size = static_cast<std::uint64_t>(st.st_size);
        f.modifiedNs = modifiedNsOf(st);
        f.mode = static_cast<unsigned>(st.st_mode) & 07777u;
        f.owner = static_cast<std::int64_t>(st.st_uid);
        f.group = static_cast<std::int64_t>(st.st_gid);
        return f;
    }

    Status canWrite(const fs::path& path) override
    {
        if (::access(path.c_str(), W_OK) == 0)
            return Status::success();
        return osError(errno == ENOENT ? FileErrorCode::NotFound : FileErrorCode::CannotWrite, path,
                       errnoText(errno));
    }

    Result<FileHandle> openRead(const fs::path& path) override
    {
        const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return osError(errno == ENOENT ? FileErrorCode::NotFound : FileErrorCode::CannotOpen,
                           path, errnoText(errno));
        return static_cast<FileHandle>(fd);
    }

    Result<FileHandle> createNew(const fs::path& path, unsigned mode) override
    {
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                              static_cast<mode_t>(mode));
        if (fd < 0)
            return osError(FileErrorCode::CannotWrite, path, errnoText(errno));
        return static_cast<FileHandle>(fd);
    }

    Result<std::size_t> read(FileHandle file, std::span<std::uint8_t> buffer) override
    {
        for (;;) {
            const ssize_t n = ::read(fdOf(file), buffer.data(), buffer.size());
            if (n >= 0)
                return static_cast<std::size_t>(n);
            if (errno != EINTR)
                return osError(FileErrorCode::CannotOpen, {}, errnoText(errno));
        }
    }

    Status write(FileHandle file, std::span<const std::uint8_t> bytes) override
    {
        while (!bytes.empty()) {
            const ssize_t n = ::write(fdOf(file), bytes.data(), bytes.size());
            if (n < 0) {
                if (errno == EINTR)
                    continue;
                return osError(FileErrorCode::CannotWrite, {}, errnoText(errno));
            }
            bytes = bytes.subspan(static_cast<std::size_t>(n));
        }
        return Status::success();
    }

    Status sync(FileHandle file) override
    {
#if defined(__APPLE__)
        // fsync only reaches the drive's cache there; F_FULLFSYNC reaches the medium.
        if (::fcntl(fdOf(file), F_FULLFSYNC) == 0)
            return Status::success();
#endif
        if (::fsync(fdOf(file)) != 0)
            return osError(FileErrorCode::CannotWrite, {}, errnoText(errno));
        return Status::success();
    }

    Status setMode(FileHandle file, unsigned mode) override
    {
        if (::fchmod(fdOf(file), static_cast<mode_t>(mode)) != 0)
            return osError(FileErrorCode::CannotWrite, {}, errnoText(errno));
        return Status::success();
    }

    Status setOwner(FileHandle file, std::int64_t owner, std::int64_t group) override
    {
        if (::fchown(fdOf(file), static_cast<uid_t>(owner), static_cast<gid_t>(group)) != 0)
            return osError(FileErrorCode::CannotWrite, {}, errnoText(errno));
        return Status::success();
    }

    Status close(FileHandle file) override
    {
        // The descriptor is released even when close reports an error; never close it twice.
        if (::close(fdOf(file)) != 0 && errno != EINTR)
            return osError(FileErrorCode::CannotWrite, {}, errnoText(errno));
        return Status::success();
    }

    Status rename(const fs::path& from, const fs::path& to) override
    {
        if (::rename(from.c_str(), to.c_str()) != 0)
            return osError(FileErrorCode::CannotWrite, to, errnoText(errno));
        return Status::success();
    }

    Status remove(const fs::path& path) override
    {
        if (::unlink(path.c_str()) != 0)
            return osError(FileErrorCode::CannotWrite, path, errnoText(errno));
        return Status::success();
    }

    Status syncFolder(const fs::path& folder) override
    {
        const fs::path name = folder.empty() ? fs::path(".") : folder;
        const int fd = ::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0)
            return osError(FileErrorCode::CannotWrite, name, errnoText(errno));
        int err = 0;
        if (::fsync(fd) != 0)
            err = errno;
        ::close(fd);
        // Some file systems cannot sync a folder at all; their renames are as durable as they get.
        if (err != 0 && err != EINVAL && err != ENOTSUP)
            return osError(FileErrorCode::CannotWrite, name, errnoText(err));
        return Status::success();
    }
};

#endif
// ---- End of the platform section.

} // namespace

FileSystem& realFileSystem()
{
    static RealFileSystem instance;
    return instance;
}

} // namespace velmora::model
