#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velmora::test {

// A fresh folder under the system's temporary folder, removed with everything in it on destruction.
class TempDir
{
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& leaf) const { return m_path / leaf; }

private:
    std::filesystem::path m_path;
};

// Whole-file helpers for tests.
std::vector<std::uint8_t> readBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes);

} // namespace velmora::test
