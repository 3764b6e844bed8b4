#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "model/Result.h"

namespace velmora::model {

// Reads a whole file into memory. NotFound when it does not exist, CannotOpen when it cannot be
// read (the detail carries the operating system's text).
Result<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path);

// Replaces a file without ever destroying the old one before the new one is complete: writes a
// temporary file in the same folder, flushes it to the disk, then renames it over the target. On
// any failure the temporary file is removed, the old file is left as it was and CannotWrite is
// returned with the operating system's error text.
Status writeFileAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

} // namespace velmora::model
