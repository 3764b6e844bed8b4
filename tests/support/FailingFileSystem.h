#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "model/FileSystem.h"

namespace velmora::test {

// A file system that passes every call to the real one except the Nth (counted from 1), which
// fails with an input/output error the way the real call can: a failing write writes half its
// bytes first, a failing close still releases the file, a failing rename or remove changes
// nothing. failAt 0 never fails, which counts the calls of a whole operation.
class FailingFileSystem final : public model::FileSystem
{
public:
    explicit FailingFileSystem(int failAt = 0) : m_failAt(failAt) {}

    int calls() const { return m_calls; }
    bool failed() const { return m_failedCall != nullptr; }
    // The name of the call that was made to fail ("write", "rename", ...), empty when none.
    std::string failedCall() const { return m_failedCall ? m_failedCall : ""; }
    // How many calls of each name were made.
    const std::map<std::string, int>& callsByName() const { return m_byName; }
    // Files made with createNew that were renamed before their bytes were synced to the disk.
    const std::vector<std::filesystem::path>& renamedUnsynced() const { return m_renamedUnsynced; }

    model::Result<std::filesystem::path> resolveLinks(const std::filesystem::path& path) override;
    model::Result<model::FileFacts> facts(const std::filesystem::path& path) override;
    model::Status canWrite(const std::filesystem::path& path) override;
    model::Result<model::FileHandle> openRead(const std::filesystem::path& path) override;
    model::Result<model::FileHandle> createNew(const std::filesystem::path& path,
                                               unsigned mode) override;
    model::Result<std::size_t> read(model::FileHandle file,
                                    std::span<std::uint8_t> buffer) override;
    model::Status write(model::FileHandle file, std::span<const std::uint8_t> bytes) override;
    model::Status sync(model::FileHandle file) override;
    model::Status setMode(model::FileHandle file, unsigned mode) override;
    model::Status setOwner(model::FileHandle file, std::int64_t owner, std::int64_t group) override;
    model::Status close(model::FileHandle file) override;
    model::Status rename(const std::filesystem::path& from,
                         const std::filesystem::path& to) override;
    model::Status remove(const std::filesystem::path& path) override;
    model::Status syncFolder(const std::filesystem::path& folder) override;

private:
    // Counts a call; true when this one is to fail.
    bool fails(const char* name);
    model::FileError injected() const;

    model::FileSystem& m_real = model::realFileSystem();
    int m_failAt;
    int m_calls = 0;
    const char* m_failedCall = nullptr;
    std::map<std::string, int> m_byName;
    std::map<model::FileHandle, std::filesystem::path> m_created; // open handles of new files
    std::set<std::filesystem::path> m_unsynced;                   // new files not synced yet
    std::vector<std::filesystem::path> m_renamedUnsynced;
};

} // namespace velmora::test
