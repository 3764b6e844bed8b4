#pragma once

#include <cstdint>
#include <vector>

#include "model/HandheldArchive.h"
#include "model/Journal.h"
#include "model/UserDatabase.h"

namespace velmora::sync {

// Helpers shared by both handhelds' conversions of journal days and identifier counters.

inline constexpr std::size_t DietNote = 2;    // the "Diet" note travels to the diet handheld
inline constexpr std::size_t FitnessNote = 3; // the "Fitness" note travels to the workout one

// 01:00:00 local time of t's local calendar date (daylight saving as the platform decides): the
// time of every day that an import creates.
model::TimeT oneInTheMorning(model::TimeT t);

// For each date of handheld, the position of the desktop day it replaces, each desktop day taken
// at most once: the first free desktop day of exactly that time, else the first free one of the
// same local calendar date; -1 when there is none.
std::vector<std::ptrdiff_t> matchDays(const std::vector<model::JournalDay>& desktop,
                                      const std::vector<model::TimeT>& handheld);

// True when every time of the day (date, wake time, variable uses, meals, workouts and their
// records) lies in lo..hi.
bool dayTimesWithin(const model::JournalDay& day, model::TimeT lo, model::TimeT hi);

// The dates of the days whose times do not fit the handheld's signed 32-bit times (after
// 2038-01-19 03:14:07 UTC, or before 1901-12-13).
std::vector<model::TimeT> daysBeyondSignedTimes(const std::vector<model::JournalDay>& days);
// The dates of the days whose times do not fit the desktop files' unsigned 32-bit times
// (before 1970).
std::vector<model::TimeT> daysBeyondDesktopTimes(const std::vector<model::JournalDay>& days);

// Replaces the desktop's definition lists by the handheld's, list by list; a handheld list that
// is empty never replaces one.
void importDefinitions(const model::DefinitionLists& handheld, model::SharedData& desktop);
model::DefinitionLists exportDefinitions(const model::SharedData& desktop);

// Keeps every counter above the identifiers in use, whatever the handheld's counters said: the
// custom-food counter at least 70000 and above every custom food's number, the others above the
// identifiers of their lists. Identifiers are never reused.
void raiseCountersAboveIds(model::SharedData& desktop);

} // namespace velmora::sync
