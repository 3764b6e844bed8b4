#pragma once

// File systems for tests that stand between the code and the real one: a read-only folder that
// binds even the superuser, and a disk that fills up.

#include <cstdint>
#include <filesystem>
#include <optional>

#include "model/FileSystem.h"

namespace velmora::test {

// Passes every call to the operating system's file system; the doubles below override a few.
class ForwardingFileSystem : public model::FileSystem
{
public:
    model::Result<std::filesystem::path> resolveLinks(const std::filesystem::path& path) override
    {
        return m_real.resolveLinks(path);
    }
    model::Result<model::FileFacts> facts(const std::filesystem::path& path) override
    {
        return m_real.facts(path);
    }
    model::Status canWrite(const std::filesystem::path& path) override
    {
        return m_real.canWrite(path);
    }
    model::Result<model::FileHandle> openRead(const std::filesystem::path& path) override
    {
        return m_real.openRead(path);
    }
    model::Result<model::FileHandle> createNew(const std::filesystem::path& path,
                                               unsigned mode) override
    {
        return m_real.createNew(path, mode);
    }
    model::Result<std::size_t> read(model::FileHandle file, std::span<std::uint8_t> buffer) override
    {
        return m_real.read(file, buffer);
    }
    model::Status write(model::FileHandle file, std::span<const std::uint8_t> bytes) override
    {
        return m_real.write(file, bytes);
    }
    model::Status sync(model::FileHandle file) override { return m_real.sync(file); }
    model::Status setMode(model::FileHandle file, unsigned mode) override
    {
        return m_real.setMode(file, mode);
    }
    model::Status setOwner(model::FileHandle file, std::int64_t owner, std::int64_t group) override
    {
        return m_real.setOwner(file, owner, group);
    }
    model::Status close(model::FileHandle file) override { return m_real.close(file); }
    model::Status rename(const std::filesystem::path& from,
                         const std::filesystem::path& to) override
    {
        return m_real.rename(from, to);
    }
    model::Status remove(const std::filesystem::path& path) override { return m_real.remove(path); }
    model::Status syncFolder(const std::filesystem::path& folder) override
    {
        return m_real.syncFolder(folder);
    }

protected:
    model::FileSystem& m_real = model::realFileSystem();
};

// A folder (or one file) that cannot be written, as on a file system mounted read-only: asking,
// creating, renaming and removing there fail with "Read-only file system"; reading works.
class ReadOnlyFileSystem final : public ForwardingFileSystem
{
public:
    explicit ReadOnlyFileSystem(std::filesystem::path readOnly) : m_readOnly(std::move(readOnly)) {}

    model::Status canWrite(const std::filesystem::path& path) override;
    model::Result<model::FileHandle> createNew(const std::filesystem::path& path,
                                               unsigned mode) override;
    model::Status rename(const std::filesystem::path& from,
                         const std::filesystem::path& to) override;
    model::Status remove(const std::filesystem::path& path) override;

private:
    bool inside(const std::filesystem::path& path) const;
    model::FileError refused(const std::filesystem::path& path) const;

    std::filesystem::path m_readOnly;
};

// A disk with a number of bytes free: a write that does not fit writes what fits and fails with
// "No space left on device", as a full disk does. Without a limit every write passes.
class FullDiskFileSystem final : public ForwardingFileSystem
{
public:
    void setFreeBytes(std::optional<std::uint64_t> free) { m_free = free; }

    model::Status write(model::FileHandle file, std::span<const std::uint8_t> bytes) override;

private:
    std::optional<std::uint64_t> m_free;
};

} // namespace velmora::test
