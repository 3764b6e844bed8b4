#pragma once

#include <cstdint>
#include <vector>

namespace velmora::sync {

// Seed inputs for the fuzz targets of the four transfer-file readers, written by the writers of
// this library: for each kind, a file with every record kind filled, and an empty one. The
// per-user kinds also get a file of an older record version.
std::vector<std::vector<std::uint8_t>> tandrySharedSeeds();
std::vector<std::vector<std::uint8_t>> tandryUserSeeds();
std::vector<std::vector<std::uint8_t>> korvelSharedSeeds();
std::vector<std::vector<std::uint8_t>> korvelUserSeeds();

} // namespace velmora::sync
