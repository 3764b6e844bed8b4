#include "model/SafeFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <system_error>

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

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

Status writeFileAtomically(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    const std::string name = path.string();
    const fs::path temp = temporaryBeside(path);
    std::FILE* f = std::fopen(temp.string().c_str(), "wb");
    if (!f)
        return FileError{FileErrorCode::CannotWrite, name, 0, std::strerror(errno)};
    bool good = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
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
    fs::rename(temp, path, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(temp, ignored);
        return FileError{FileErrorCode::CannotWrite, name, 0, ec.message()};
    }
    return Status::success();
}

} // namespace velmora::model
