#include "support/TestFileSystems.h"

#include <algorithm>

namespace velmora::test {

using namespace model;
namespace fs = std::filesystem;

bool ReadOnlyFileSystem::inside(const fs::path& path) const
{
    const fs::path p = path.lexically_normal();
    const fs::path root = m_readOnly.lexically_normal();
    if (p == root)
        return true;
    const auto [rootEnd, pathAt] = std::mismatch(root.begin(), root.end(), p.begin(), p.end());
    return rootEnd == root.end();
}

FileError ReadOnlyFileSystem::refused(const fs::path& path) const
{
    return FileError{FileErrorCode::CannotWrite, path.string(), 0, "Read-only file system"};
}

Status ReadOnlyFileSystem::canWrite(const fs::path& path)
{
    if (inside(path))
        return refused(path);
    return m_real.canWrite(path);
}

Result<FileHandle> ReadOnlyFileSystem::createNew(const fs::path& path, unsigned mode)
{
    if (inside(path))
        return refused(path);
    return m_real.createNew(path, mode);
}

Status ReadOnlyFileSystem::rename(const fs::path& from, const fs::path& to)
{
    if (inside(from) || inside(to))
        return refused(to);
    return m_real.rename(from, to);
}

Status ReadOnlyFileSystem::remove(const fs::path& path)
{
    if (inside(path))
        return refused(path);
    return m_real.remove(path);
}

Status FullDiskFileSystem::write(FileHandle file, std::span<const std::uint8_t> bytes)
{
    if (!m_free || bytes.size() <= *m_free) {
        if (m_free)
            *m_free -= bytes.size();
        return m_real.write(file, bytes);
    }
    (void)m_real.write(file, bytes.first(static_cast<std::size_t>(*m_free)));
    m_free = 0;
    return FileError{FileErrorCode::CannotWrite, {}, 0, "No space left on device"};
}

} // namespace velmora::test
