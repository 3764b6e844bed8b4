#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "model/Result.h"

namespace velmora::sync {

// Both handhelds exchange their files through this folder inside the data folder.
inline constexpr const char* HandheldFolderName = "TandryFiles";

std::filesystem::path handheldFolder(const std::filesystem::path& dataDir);

// The file of a handheld user: folder / (name + extension). A name that could reach outside the
// folder or is no valid file name (see model::checkUserName) gives UnsafeName. The empty name is
// allowed and gives the hidden file extension alone (".db"), which stays inside the folder.
model::Result<std::filesystem::path> handheldUserFile(const std::filesystem::path& folder,
                                                      const std::string& name,
                                                      const std::string& extension);

// The first 32-bit value of a shared transfer file: its format version. A file that does not
// exist gives whenMissing, so a handheld that never wrote the file passes the version rule.
// A file shorter than four bytes gives UnexpectedEnd at offset 0; one that cannot be read gives
// CannotOpen.
model::Result<std::uint32_t> readVersionWord(const std::filesystem::path& file,
                                             std::uint32_t whenMissing);

} // namespace velmora::sync
