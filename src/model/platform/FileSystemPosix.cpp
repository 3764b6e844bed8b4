// The file system of POSIX systems (Linux, macOS) behind FileSystem; the Windows one is
// FileSystemWindows.cpp. CMake builds one of the two.
#include "model/FileSystem.h"

#include <cerrno>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

// Symbolic links followed before a chain is taken for a loop.
constexpr int MaxLinkDepth = 40;

FileError osError(FileErrorCode code, const fs::path& path, const std::string& text)
{
    return FileError{code, path.string(), 0, text};
}

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

} // namespace

FileSystem& realFileSystem()
{
    static RealFileSystem instance;
    return instance;
}

} // namespace velmora::model
