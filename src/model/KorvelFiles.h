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

namespace velmora::model {

inline constexpr const char* KorvelSharedFileName = "korvel.dwb";
inline constexpr const char* KorvelUserFileExtension = ".dwb";
// Day-values records carry their measurements in files written after this version.
inline constexpr std::uint32_t KorvelLastVersionWithoutMeasurements = 300;

// One day of the workout handheld. File order: date, day values, workouts, note. No meals.
struct KorvelDay
{
    TimeT date = 0; // signed 32-bit in the file
    HealthEntry values;
    std::vector<WorkoutEntry> workouts;
    std::string note;
};

// The shared file "korvel.dwb": version, header text, the counters of the four definition lists
// (fields, exercises, routines, then the one after routines), the current user, the user names
// and the four definition lists. No foods.
struct KorvelShared
{
    static constexpr const char* FileName = KorvelSharedFileName;
    static constexpr std::uint32_t Version = KorvelFormatVersion;
    enum Counter
    {
        Fields = 0,
        Exercises = 1,
        Routines = 2,
        Fourth = 3
    };

    std::uint32_t version = KorvelFormatVersion;
    std::string header; // kept as read, never interpreted
    std::array<std::uint32_t, 4> counters{1, 1, 1, 0};
    std::uint8_t currentUser = 0;
    std::vector<std::string> userNames;
    DefinitionLists definitions;

    static Result<KorvelShared> parse(std::span<const std::uint8_t> bytes,
                                      const std::string& fileName);
    // What a damaged file holds whole, and the error that stopped the read: the fields up to the
    // user names, the definition lists each (partsRead counts the parts; the four definition
    // lists are one).
    static Salvaged<KorvelShared> salvage(std::span<const std::uint8_t> bytes,
                                          const std::string& fileName);
    // Always as the current version; only the first 255 names are written.
    std::vector<std::uint8_t> serialize() const;
    void releaseLists() { definitions.clear(); }
    // A store without users gets the handheld's default definitions before a user is read.
    void prepareForUserRead()
    {
        if (userNames.empty())
            fillDefaultDefinitions();
    }
    // Fills the field list and the exercise list with the defaults when they are empty, taking
    // identifiers from the counters: nine fields ("Reps", "Weight", "Pace", "Comment", "Time",
    // "Level", "Location", "Max. HR", "Ave. HR"), thirteen strength exercises that use the first
    // four fields and twelve cardio exercises that use the last seven (all in the exercise list).
    // A list that holds anything is left as it is.
    void fillDefaultDefinitions();
};

// A workout handheld user's file: the profile and the days.
struct KorvelUser
{
    static constexpr const char* Extension = KorvelUserFileExtension;

    KorvelProfile profile;
    std::vector<KorvelDay> days;

    static Result<KorvelUser> parse(std::span<const std::uint8_t> bytes,
                                    const std::string& fileName);
    // What a damaged file holds whole: the profile, then the days (partsRead counts them).
    static Salvaged<KorvelUser> salvage(std::span<const std::uint8_t> bytes,
                                        const std::string& fileName);
    std::vector<std::uint8_t> serialize() const;
};

} // namespace velmora::model
