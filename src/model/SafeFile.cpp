#include "model/SafeFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <system_error>

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

#include "model/Clock.h"

namespace velmora::model {

namespace fs = std::filesystem;

Result<std::vector<std::uint8_t>> readWholeFile(const fs::path& path)
{
    const std::string name = path.string();
    std::error_code ec;
    if (!fs::exists(path, ec))
        return FileError{FileErrorCode::NotFound, name, 0, {}};
    std::FILE* f = std::fopen(name.c_str(), "rb");
    if (!f)
        return FileError{FileErrorCode::CannotOpen, name, 0, std::strerror(errno)};
    std::vector<std::uint8_t> bytes;
    const auto size = fs::file_size(path, ec);
    if (!ec)
        bytes.reserve(static_cast<std::size_t>(size));
    std::uint8_t buffer[65536];
    for (;;) {
        const std::size_t got = std::fread(buffer, 1, sizeof buffer, f);
        bytes.insert(bytes.end(), buffer, buffer + got);
        if (got < sizeof buffer)
            break;
    }
    const bool failed = std::ferror(f) != 0;
    const int err = errno;
    std::fclose(f);
    if (failed)
        return FileError{FileErrorCode::CannotOpen, name, 0, std::strerror(err)};
    return bytes;
}

namespace {

fs::path temporaryBeside(const fs::path& path)
{
    static std::mt19937 rng{std::random_device{}()};
    std::string leaf = path.filename().string();
    return path.parent_path() / ("." + leaf + ".tmp" + std::to_string(rng() % 1000000));
}

bool syncFile(std::FILE* f)
{
#if defined(_WIN32)
    return _commit(_fileno(f)) == 0;
#else
    return ::fsync(fileno(f)) == 0;
#endif
}

} // namespace

fs::path backupPathFor(const fs::path& path)
{
    fs::path b = path;
    b += ".bak";
    return b;
}

namespace {

// Makes "<file>.bak" hold the current content of path: a hard link where the file system has
// them (no bytes copied, and the old content stays reachable after the rename that follows),
// a copy elsewhere. The new backup replaces the old one in one rename.
void keepBackupOf(const fs::path& path)
{
    std::error_code ec;
    if (!fs::exists(path, ec))
        return;
    const fs::path backup = backupPathFor(path);
    const fs::path temp = temporaryBeside(backup);
    fs::create_hard_link(path, temp, ec);
    if (ec) {
        ec.clear();
        fs::copy_file(path, temp, fs::copy_options::overwrite_existing, ec);
    }
    if (!ec)
        fs::rename(temp, backup, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(temp, ignored);
    }
}

} // namespace

Result<fs::path> moveAside(const fs::path& path)
{
    const std::time_t moment = static_cast<std::time_t>(now());
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", std::localtime(&moment));
    fs::path target = path;
    target += std::string(".damaged-") + stamp;
    std::error_code ec;
    for (int n = 2; fs::exists(target, ec) || fs::is_symlink(target, ec); ++n) {
        target = path;
        target += std::string(".damaged-") + stamp + "-" + std::to_string(n);
    }
    fs::rename(path, target, ec);
    if (ec)
        return FileError{FileErrorCode::CannotWrite, path.string(), 0, ec.message()};
    return target;
}

Status writeFileAtomically(const fs::path& path, std::span<const std::uint8_t> bytes,
                           KeepBackup keep, const BlockWriter& writer)
{
    const std::string name = path.string();
    const fs::path temp = temporaryBeside(path);
    std::FILE* f = std::fopen(temp.string().c_str(), "wb");
    if (!f)
        return FileError{FileErrorCode::CannotWrite, name, 0, std::strerror(errno)};
    bool good =
        bytes.empty() ||
        (writer ? writer(f, bytes) : std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size());
    int err = good ? 0 : errno;
    if (good && std::fflush(f) != 0) {
        good = false;
        err = errno;
    }
    if (good && !syncFile(f)) {
        good = false;
        err = errno;
    }
    if (std::fclose(f) != 0 && good) {
        good = false;
        err = errno;
    }
    std::error_code ec;
    if (!good) {
        fs::remove(temp, ec);
        return FileError{FileErrorCode::CannotWrite, name, 0, std::strerror(err)};
    }
    if (keep == KeepBackup::Yes)
        keepBackupOf(path);
    fs::rename(temp, path, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(temp, ignored);
        return FileError{FileErrorCode::CannotWrite, name, 0, ec.message()};
    }
    return Status::success();
}

} // namespace velmora::model
