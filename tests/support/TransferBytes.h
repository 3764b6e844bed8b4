#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/Bytes.h"

namespace velmora::test {

// An IEEE double, little-endian, for the diet profile's goals.
inline Bytes& f64(Bytes& b, double v)
{
    std::uint64_t bits;
    std::memcpy(&bits, &v, 8);
    b.u32(static_cast<std::uint32_t>(bits));
    return b.u32(static_cast<std::uint32_t>(bits >> 32));
}

// Hand-made transfer-file images, byte by byte from the record layouts, independent of the
// writers under test. Their content is described in TransferBytes.cpp.
std::vector<std::uint8_t> handTandryFood();
std::vector<std::uint8_t> handTandryProfile(std::uint32_t version, std::uint32_t listLength = 2);
std::vector<std::uint8_t> handKorvelProfile(std::uint32_t version);
// One day's day values; the measurements only when withMeasurements.
std::vector<std::uint8_t> handDayValues(bool withMeasurements);
std::vector<std::uint8_t> handWorkouts();
std::vector<std::uint8_t> handTandryUser(std::uint32_t version);
std::vector<std::uint8_t> handKorvelUser(std::uint32_t version);
std::vector<std::uint8_t> handDefinitions();
std::vector<std::uint8_t> handTandryShared(std::uint32_t version);
std::vector<std::uint8_t> handKorvelShared(std::uint32_t version);

} // namespace velmora::test
