#include "model/FileStamp.h"

#include "model/SafeFile.h"

#include <string>
#include <vector>

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

// Creates copy with bytes, synced; removes it again on failure.
Status writeCopy(FileSystem& files, const fs::path& copy, const std::vector<std::uint8_t>& bytes,
                 FileHandle out, const FileFacts& facts)
{
    (void)files.setMode(out, facts.mode);
    Status s = files.write(out, bytes);
    if (s)
        s = files.sync(out);
    const Status closed = files.close(out);
    if (s && !closed)
        s = closed;
    if (s)
        s = files.syncFolder(copy.parent_path());
    if (!s)
        (void)files.remove(copy);
    return s;
}

} // namespace

std::uint64_t contentHash(std::span<const std::uint8_t> bytes)
{
    std::uint64_t h = 14695981039346656037ull;
    for (std::uint8_t b : bytes) {
        h ^= b;
        h *= 1099511628211ull;
    }
    return h;
}

FileStamp FileStamp::of(const fs::path& path, std::span<const std::uint8_t> bytes,
                        FileSystem& files)
{
    FileStamp s;
    s.existed = true;
    s.size = bytes.size();
    s.hash = contentHash(bytes);
    if (auto facts = files.facts(path))
        s.modifiedNs = facts.value().modifiedNs;
    return s;
}

Result<DiskChange> changeSince(const fs::path& path, const FileStamp& stamp, FileSystem& files)
{
    auto facts = files.facts(path);
    if (!facts) {
        if (facts.error().code != FileErrorCode::NotFound)
            return facts.error();
        return stamp.existed ? DiskChange::Removed : DiskChange::Unchanged;
    }
    if (!stamp.existed)
        return DiskChange::Created;
    if (facts.value().size != stamp.size)
        return DiskChange::Changed;
    // Same size: only the bytes tell, since a time can be kept or set back by whoever wrote.
    auto bytes = readWholeFile(path, files);
    if (!bytes)
        return bytes.error();
    return bytes.value().size() == stamp.size && contentHash(bytes.value()) == stamp.hash
               ? DiskChange::Unchanged
               : DiskChange::Changed;
}

Result<fs::path> keepOtherVersion(const fs::path& path, std::time_t now, FileSystem& files)
{
    auto facts = files.facts(path);
    if (!facts)
        return facts.error();
    auto bytes = readWholeFile(path, files);
    if (!bytes)
        return bytes.error();
    const std::string base = path.filename().string() + ".conflict-" + localTimeStamp(now);
    for (int n = 1;; ++n) {
        const fs::path copy = path.parent_path() / (n == 1 ? base : base + "-" + std::to_string(n));
        auto created = files.createNew(copy, facts.value().mode);
        if (!created) {
            // A name already taken is skipped; any other failure ends the attempt.
            std::error_code ec;
            if (n < 1000 && fs::exists(fs::symlink_status(copy, ec)))
                continue;
            return FileError{FileErrorCode::CannotWrite, copy.string(), 0, created.error().detail};
        }
        if (Status s = writeCopy(files, copy, bytes.value(), created.value(), facts.value()); !s)
            return FileError{FileErrorCode::CannotWrite, copy.string(), 0, s.error().detail};
        return copy;
    }
}

} // namespace velmora::model
