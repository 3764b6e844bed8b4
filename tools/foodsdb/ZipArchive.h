#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/Result.h"

namespace velmora::foodsdb {

// Read-only access to a zip archive (the packaged USDA data comes as two of them). Errors name the
// archive and say what is wrong: NotFound for a missing file, CannotOpen when it cannot be read,
// BadValue when it is not a zip archive or an entry is damaged.
class ZipArchive
{
public:
    static model::Result<ZipArchive> open(const std::filesystem::path& path);

    ZipArchive(ZipArchive&&) noexcept;
    ZipArchive& operator=(ZipArchive&&) noexcept;
    ~ZipArchive();

    // Names of all entries, in the archive's order.
    std::vector<std::string> entryNames() const;
    bool contains(const std::string& name) const;
    // The whole uncompressed content of one entry; its checksum is verified.
    model::Result<std::string> read(const std::string& name) const;

    const std::string& fileName() const { return m_fileName; }

private:
    struct Handle;
    ZipArchive(std::unique_ptr<Handle> handle, std::string fileName);

    std::unique_ptr<Handle> m_handle;
    std::string m_fileName;
};

} // namespace velmora::foodsdb
