#include "model/SafeFile.h"

#include <algorithm>
#include <ctime>
#include <optional>
#include <random>
#include <string>
#include <system_error>

namespace velmora::model {

namespace fs = std::filesystem;

Result<std::vector<std::uint8_t>> readWholeFile(const fs::path& path, FileSystem& files)
{
    auto opened = files.openRead(path);
    if (!opened) {
        FileError e = opened.error();
        e.file = path.string();
        return e;
    }
    std::vector<std::uint8_t> bytes;
    if (auto facts = files.facts(path))
        bytes.reserve(static_cast<std::size_t>(facts.value().size));
    std::vector<std::uint8_t> buffer(256 * 1024);
    for (;;) {
        auto got = files.read(opened.value(), buffer);
        if (!got) {
            (void)files.close(opened.value());
            return FileError{FileErrorCode::CannotOpen, path.string(), 0, got.error().detail};
        }
        if (got.value() == 0)
            break;
        bytes.insert(bytes.end(), buffer.begin(),
                     buffer.begin() + static_cast<std::ptrdiff_t>(got.value()));
    }
    (void)files.close(opened.value());
    return bytes;
}

namespace {

// Bytes written or copied per call, so that a save of a large journal is many calls that can
// each fail.
constexpr std::size_t ChunkSize = 64 * 1024;

fs::path temporaryBeside(const fs::path& path)
{
    static std::mt19937 rng{std::random_device{}()};
    std::string leaf = path.filename().string();
    return path.parent_path() / ("." + leaf + ".tmp" + std::to_string(rng() % 1000000));
}

FileError cannotWrite(const fs::path& path, const FileError& cause)
{
    return FileError{FileErrorCode::CannotWrite, path.string(), 0, cause.detail};
}

// Gives a freshly created file the permissions and owner of the file it stands in for. Both are
// best effort: the file was created with the same bits less the process's umask, so a failure
// leaves it at most as open as the old one, never more; and only a privileged process may give
// a file away to another owner.
void copyPermissions(FileSystem& files, FileHandle file, const FileFacts& like)
{
    (void)files.setMode(file, like.mode);
    if (like.owner >= 0)
        (void)files.setOwner(file, like.owner, like.group);
}

// An open handle that is closed once, on every path; close() reports the error of an explicit
// close, the destructor closes silently after a failure elsewhere.
class OpenFile
{
public:
    OpenFile(FileSystem& files, FileHandle h) : m_files(files), m_handle(h) {}
    ~OpenFile()
    {
        if (m_open)
            (void)m_files.close(m_handle);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    FileHandle handle() const { return m_handle; }
    Status close()
    {
        m_open = false;
        return m_files.close(m_handle);
    }

private:
    FileSystem& m_files;
    FileHandle m_handle;
    bool m_open = true;
};

// Creates temp with the bytes, synced and closed. On failure temp is removed.
Status writeNewFile(FileSystem& files, const fs::path& temp, std::span<const std::uint8_t> bytes,
                    const std::optional<FileFacts>& like)
{
    auto created = files.createNew(temp, like ? like->mode : NewFileMode);
    if (!created)
        return created.error();
    Status s = [&]() -> Status {
        OpenFile out(files, created.value());
        if (like)
            copyPermissions(files, out.handle(), *like);
        for (std::size_t at = 0; at < bytes.size(); at += ChunkSize) {
            const auto chunk = bytes.subspan(at, std::min(ChunkSize, bytes.size() - at));
            if (Status w = files.write(out.handle(), chunk); !w)
                return w;
        }
        if (Status w = files.sync(out.handle()); !w)
            return w;
        return out.close();
    }();
    if (!s)
        (void)files.remove(temp);
    return s;
}

// Copies source (whose facts are given) to temp, synced and closed. On failure temp is removed.
Status copyToNewFile(FileSystem& files, const fs::path& source, const FileFacts& facts,
                     const fs::path& temp)
{
    auto opened = files.openRead(source);
    if (!opened)
        return opened.error();
    OpenFile in(files, opened.value());
    auto created = files.createNew(temp, facts.mode);
    if (!created)
        return created.error();
    Status s = [&]() -> Status {
        OpenFile out(files, created.value());
        copyPermissions(files, out.handle(), facts);
        std::vector<std::uint8_t> buffer(ChunkSize);
        for (;;) {
            auto got = files.read(in.handle(), buffer);
            if (!got)
                return got.error();
            if (got.value() == 0)
                break;
            if (Status w = files.write(out.handle(), std::span(buffer).first(got.value())); !w)
                return w;
        }
        if (Status w = files.sync(out.handle()); !w)
            return w;
        return out.close();
    }();
    if (!s)
        (void)files.remove(temp);
    return s;
}

// Makes backup a real copy of source's current content, replacing the previous backup in one
// rename. A hard link would not do: the backup must not change with anything that later writes
// to the file in place, and a link to a symbolic link would follow the live file.
Status keepBackupOf(FileSystem& files, const fs::path& source, const FileFacts& facts,
                    const fs::path& backup)
{
    const fs::path temp = temporaryBeside(backup);
    if (Status s = copyToNewFile(files, source, facts, temp); !s)
        return s;
    if (Status s = files.rename(temp, backup); !s) {
        (void)files.remove(temp);
        return s;
    }
    return Status::success();
}

} // namespace

fs::path backupPathFor(const fs::path& path)
{
    fs::path b = path;
    b += ".bak";
    return b;
}

std::string localTimeStamp(std::time_t now)
{
    std::tm fields{};
#if defined(_WIN32)
    localtime_s(&fields, &now);
#else
    localtime_r(&now, &fields);
#endif
    char text[32];
    std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &fields);
    return text;
}

fs::path datedName(const fs::path& path, std::string_view label, std::time_t now)
{
    const std::string base =
        path.filename().string() + "." + std::string(label) + "-" + localTimeStamp(now);
    fs::path target = path.parent_path() / base;
    std::error_code ec;
    for (int n = 2; fs::exists(target, ec) || fs::is_symlink(target, ec); ++n)
        target = path.parent_path() / (base + "-" + std::to_string(n));
    return target;
}

Result<fs::path> moveAside(const fs::path& path, std::string_view label, std::time_t now,
                           FileSystem& files)
{
    const fs::path target = datedName(path, label, now);
    if (Status s = files.rename(path, target); !s)
        return FileError{FileErrorCode::CannotWrite, path.string(), 0, s.error().detail};
    return target;
}

Status writeFileAtomically(const fs::path& path, std::span<const std::uint8_t> bytes,
                           KeepBackup keep, FileSystem& files)
{
    // A link is written through: the new file is made beside the file the link names, so that
    // the rename replaces that file and leaves the link as it is.
    auto resolved = files.resolveLinks(path);
    if (!resolved)
        return cannotWrite(path, resolved.error());
    const fs::path target = resolved.value();
    std::optional<FileFacts> old;
    if (auto facts = files.facts(target))
        old = facts.value();
    else if (facts.error().code != FileErrorCode::NotFound)
        return cannotWrite(path, facts.error());

    const fs::path temp = temporaryBeside(target);
    if (Status s = writeNewFile(files, temp, bytes, old); !s)
        return cannotWrite(path, s.error());

    const fs::path backup = backupPathFor(path);
    bool backupKept = false;
    if (keep == KeepBackup::Yes && old)
        backupKept = keepBackupOf(files, target, *old, backup).ok();

    if (Status s = files.rename(temp, target); !s) {
        (void)files.remove(temp);
        return cannotWrite(path, s.error());
    }
    if (Status s = files.syncFolder(target.parent_path()); !s)
        return cannotWrite(path, s.error());
    if (backupKept && backup.parent_path() != target.parent_path()) {
        if (Status s = files.syncFolder(backup.parent_path()); !s)
            return cannotWrite(path, s.error());
    }
    return Status::success();
}

} // namespace velmora::model
