#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/Archive.h"
#include "model/Nutrients.h"

namespace velmora::model {

inline constexpr std::uint32_t TandryFormatVersion = 376;
inline constexpr std::uint32_t KorvelFormatVersion = 302;

// The NutrientId of each of the diet handheld's 33 goal values, in the order of its profile.
inline constexpr std::array<NutrientId, 33> TandryGoalNutrients = {
    208, 205, 203, 204, 606, 645, 646, 601, 291, 100, 101, 102, 301, 304, 305, 303, 309,
    312, 307, 410, 317, 306, 318, 401, 324, 394, 404, 405, 406, 417, 415, 418, 103};

// At most this many entries in the diet profile's list; a file claiming more is damaged.
inline constexpr std::uint32_t MaxTandryProfileEntries = 100;

// One diet handheld user's settings. Apart from the version, the goals and the list, the desktop
// does not interpret the settings: they are kept as read and written back. Members are named
// after their place in the record (1 to 33):
//    1 version u32 | 2-3 u8 x2 | 4 u32 | 5-7 u8 x3 | 8-10 u32 x3 | 11-17 u8 x7 | 18-20 u32 x3
//   21 list length u32 | 22 u32 | 23-24 u8 x2 | 25 u32 | 26 goals f64 x33 | 27 u32 x3
//   28 two times | 29 u32 | 30 the list, u32 x length | 31 u8 x3 | 32 u8 x8
//   33 u32, present only in records of version 340 and later.
struct TandryProfile
{
    std::uint32_t version = TandryFormatVersion; // becomes the current version once read
    std::array<std::uint8_t, 2> settings2{};
    std::uint32_t setting4 = 0;
    std::array<std::uint8_t, 3> settings5{};
    std::array<std::uint32_t, 3> settings8{};
    std::array<std::uint8_t, 7> settings11{};
    std::array<std::uint32_t, 3> settings18{};
    std::uint32_t setting22 = 0;
    std::array<std::uint8_t, 2> settings23{};
    std::uint32_t setting25 = 0;
    std::array<double, 33> goals{}; // in TandryGoalNutrients order
    std::array<std::uint32_t, 3> settings27{};
    std::array<TimeT, 2> dates{}; // signed 32-bit times
    std::uint32_t setting29 = 0;
    std::vector<std::uint32_t> entries; // at most MaxTandryProfileEntries
    std::array<std::uint8_t, 3> settings31{};
    std::array<std::uint8_t, 8> settings32{};
    std::uint32_t lastSetting = 0;

    // Reads the record; returns the version the record was written with (the member becomes the
    // current version). Throws ArchiveError (BadValue at the length's offset) when the
    // list claims more than 100 entries, and when the bytes run out.
    std::uint32_t read(ArchiveReader& in);
    // Always as the current version, the last setting included.
    void write(ArchiveWriter& out) const;
};

// One workout handheld user's settings, kept as read and written back. Members are named after
// their place in the record (1 to 24):
//    1 version u32 | 2-3 u8 x2 | 4 u32 | 5-7 u8 x3 | 8-10 u32 x3 | 11-14 u8 x4 | 15-17 u32 x3
//   18-19 u8 x2 | 20 u32 | 21-23 u8 x3 | 24 u32
struct KorvelProfile
{
    std::uint32_t version = KorvelFormatVersion; // becomes the current version once read
    std::array<std::uint8_t, 2> settings2{};
    std::uint32_t setting4 = 0;
    std::array<std::uint8_t, 3> settings5{};
    std::array<std::uint32_t, 3> settings8{};
    std::array<std::uint8_t, 4> settings11{};
    std::array<std::uint32_t, 3> settings15{};
    std::array<std::uint8_t, 2> settings18{};
    std::uint32_t setting20 = 0;
    std::array<std::uint8_t, 3> settings21{};
    std::uint32_t setting24 = 0;

    // Returns the version the record was written with. Throws ArchiveError when the bytes
    // run out.
    std::uint32_t read(ArchiveReader& in);
    void write(ArchiveWriter& out) const;
};

} // namespace velmora::model
