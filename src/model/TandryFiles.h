#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "model/Journal.h"
#include "model/Result.h"
#include "model/HandheldArchive.h"
#include "model/HandheldProfiles.h"
#include "model/TandryFood.h"

namespace velmora::model {

inline constexpr const char* TandrySharedFileName = "tandry.db";
inline constexpr const char* TandryUserFileExtension = ".db";
// Day-values records carry their measurements in files written after this version.
inline constexpr std::uint32_t TandryLastVersionWithoutMeasurements = 373;

// One day of the diet handheld. File order: date, day values, meals, workouts, note.
struct TandryDay
{
    TimeT date = 0; // signed 32-bit in the file
    HealthEntry values;
    std::vector<Meal> meals;
    std::vector<WorkoutEntry> workouts;
    std::string note;
};

// The shared file "tandry.db": version, header text, the six id counters, the current user, the
// user names (a one-byte count), the foods and the four definition lists.
struct TandryShared
{
    static constexpr const char* FileName = TandrySharedFileName;
    static constexpr std::uint32_t Version = TandryFormatVersion;

    std::uint32_t version = TandryFormatVersion;
    std::string header; // kept as read, never interpreted
    std::array<std::uint32_t, 6> counters{};
    std::uint8_t currentUser = 0;
    std::vector<std::string> userNames;
    std::vector<TandryFood> foods;
    DefinitionLists definitions;

    // Parses a whole file image of any version. Errors carry fileName and the byte offset.
    static Result<TandryShared> parse(std::span<const std::uint8_t> bytes,
                                      const std::string& fileName);
    // What a damaged file holds whole, and the error that stopped the read: the fields up to the
    // user names, the foods, the definition lists each (partsRead counts the parts; the four
    // definition lists are one).
    static Salvaged<TandryShared> salvage(std::span<const std::uint8_t> bytes,
                                          const std::string& fileName);
    // Always as the current version; the name count is the list's size, and only the first 255
    // names are written (the count is one byte).
    std::vector<std::uint8_t> serialize() const;
    // Drops the foods and the definitions (what a write with release leaves behind).
    void releaseLists();
    // Nothing to prepare before a user's file is read.
    void prepareForUserRead() {}
};

// A diet handheld user's file: the profile and the days. The profile's version decides whether
// the day-values records carry their measurements.
struct TandryUser
{
    static constexpr const char* Extension = TandryUserFileExtension;

    TandryProfile profile;
    std::vector<TandryDay> days;

    static Result<TandryUser> parse(std::span<const std::uint8_t> bytes,
                                    const std::string& fileName);
    // What a damaged file holds whole: the profile, then the days (partsRead counts them).
    static Salvaged<TandryUser> salvage(std::span<const std::uint8_t> bytes,
                                        const std::string& fileName);
    std::vector<std::uint8_t> serialize() const;
};

} // namespace velmora::model
