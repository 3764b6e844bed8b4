#include "support/FailingFileSystem.h"

namespace velmora::test {

using namespace model;
namespace fs = std::filesystem;

bool FailingFileSystem::fails(const char* name)
{
    ++m_calls;
    ++m_byName[name];
    if (m_calls != m_failAt)
        return false;
    m_failedCall = name;
    return true;
}

FileError FailingFileSystem::injected() const
{
    return FileError{FileErrorCode::CannotWrite, {}, 0, "Input/output error (injected)"};
}

Result<fs::path> FailingFileSystem::resolveLinks(const fs::path& path)
{
    if (fails("resolveLinks"))
        return injected();
    return m_real.resolveLinks(path);
}

Result<FileFacts> FailingFileSystem::facts(const fs::path& path)
{
    if (fails("facts"))
        return injected();
    return m_real.facts(path);
}

Status FailingFileSystem::canWrite(const fs::path& path)
{
    if (fails("canWrite"))
        return injected();
    return m_real.canWrite(path);
}

Result<FileHandle> FailingFileSystem::openRead(const fs::path& path)
{
    if (fails("openRead"))
        return injected();
    return m_real.openRead(path);
}

Result<FileHandle> FailingFileSystem::createNew(const fs::path& path, unsigned mode)
{
    if (fails("createNew"))
        return injected();
    auto created = m_real.createNew(path, mode);
    if (created) {
        m_created[created.value()] = path;
        m_unsynced.insert(path);
    }
    return created;
}

Result<std::size_t> FailingFileSystem::read(FileHandle file, std::span<std::uint8_t> buffer)
{
    if (fails("read"))
        return injected();
    return m_real.read(file, buffer);
}

Status FailingFileSystem::write(FileHandle file, std::span<const std::uint8_t> bytes)
{
    if (fails("write")) {
        // A full disk takes part of the bytes before it refuses the rest.
        (void)m_real.write(file, bytes.first(bytes.size() / 2));
        return injected();
    }
    return m_real.write(file, bytes);
}

Status FailingFileSystem::sync(FileHandle file)
{
    if (fails("sync"))
        return injected();
    Status synced = m_real.sync(file);
    if (synced.ok() && m_created.count(file))
        m_unsynced.erase(m_created[file]);
    return synced;
}

Status FailingFileSystem::setMode(FileHandle file, unsigned mode)
{
    if (fails("setMode"))
        return injected();
    return m_real.setMode(file, mode);
}

Status FailingFileSystem::setOwner(FileHandle file, std::int64_t owner, std::int64_t group)
{
    if (fails("setOwner"))
        return injected();
    return m_real.setOwner(file, owner, group);
}

Status FailingFileSystem::close(FileHandle file)
{
    m_created.erase(file);
    if (fails("close")) {
        // The handle is gone even when closing reports an error.
        (void)m_real.close(file);
        return injected();
    }
    return m_real.close(file);
}

Status FailingFileSystem::rename(const fs::path& from, const fs::path& to)
{
    if (fails("rename"))
        return injected();
    if (m_unsynced.count(from))
        m_renamedUnsynced.push_back(from);
    return m_real.rename(from, to);
}

Status FailingFileSystem::remove(const fs::path& path)
{
    if (fails("remove"))
        return injected();
    return m_real.remove(path);
}

Status FailingFileSystem::syncFolder(const fs::path& folder)
{
    if (fails("syncFolder"))
        return injected();
    return m_real.syncFolder(folder);
}

} // namespace velmora::test
