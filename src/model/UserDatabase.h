#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "model/FoodItem.h"
#include "model/Journal.h"
#include "model/Result.h"
#include "model/User.h"

namespace velmora::model {

// The six next-identifier counters of "velmora.db", in file order. A new record takes the
// counter's current value and the counter rises by one; identifiers are never reused.
//   0 custom foods (from 70000), 1 user variables, 2 exercise fields, 3 exercises, 4 routines,
//   5 kept as read (no list uses it).
struct IdCounters
{
    enum Slot
    {
        CustomFood = 0,
        UserVariable = 1,
        ExerciseField = 2,
        Exercise = 3,
        Routine = 4,
        Spare = 5
    };
    std::array<std::int32_t, 6> values{FirstCustomFoodNumber, 1, 1, 1, 1, 0};

    std::int32_t take(Slot s) { return values[s]++; }
};

inline constexpr std::size_t MaxUserNames = 255; // the file's name count is one byte

// The content of "velmora.db": users and the definitions that all users share.
struct SharedData
{
    std::int32_t version = CurrentFormatVersion;
    std::int32_t oldFormatVersion = 0; // the version read when it was below 131, else 0
    std::string header1 = "Velmora";
    std::string header2 = "User Database";
    IdCounters counters;
    std::uint8_t currentUser = 0;
    std::vector<std::string> userNames;
    std::vector<FoodItem> customFoods; // values per serving, servingWeight set, no measures
    std::vector<ExerciseField> fields;
    std::vector<Exercise> exercises;
    std::vector<Routine> routines;
    std::vector<UserVariable> variables;

    // Parses a whole "velmora.db" image (any version).
    static Result<SharedData> parse(std::span<const std::uint8_t> bytes,
                                    const std::string& fileName);
    // Reads what can be read completely from a damaged image: the header whole or not at all,
    // then every user name and every record of each list that was read completely; lists after
    // the damage keep their defaults. lists tells how many records of each list were kept.
    static Salvaged<SharedData> salvage(std::span<const std::uint8_t> bytes,
                                        const std::string& fileName);
    // Serialises as version 131; the name count is the list's size (callers keep it at most 255).
    std::vector<std::uint8_t> serialize() const;
};

// The content of one user's file: the profile record and the journal days.
struct UserJournal
{
    User user;
    std::vector<JournalDay> days; // in the order read or added

    static Result<UserJournal> parse(std::span<const std::uint8_t> bytes,
                                     const std::string& fileName);
    // The profile record whole or not at all (partsRead 1 or more when it was read), then every
    // day read completely; lists tells how many of the file's days were kept.
    static Salvaged<UserJournal> salvage(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName);
    std::vector<std::uint8_t> serialize() const;

    JournalDay* findDay(TimeT date); // exact date match, first wins
    const JournalDay* findDay(TimeT date) const;
};

// Record codecs shared by the file readers and writers (and by tests with hand-made bytes).
void readJournalDay(ArchiveReader& in, JournalDay& day);
void writeJournalDay(ArchiveWriter& out, const JournalDay& day);
void readHealthEntry(ArchiveReader& in, HealthEntry& h);
void writeHealthEntry(ArchiveWriter& out, const HealthEntry& h);

} // namespace velmora::model
