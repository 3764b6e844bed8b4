#pragma once

#include <cstdint>

#include "model/FoodItem.h"
#include "model/Nutrients.h"
#include "model/TandryFiles.h"
#include "model/User.h"
#include "model/UserDatabase.h"

namespace velmora::sync {

// Conversions between the desktop records and the diet handheld's. Both directions replace the
// receiving side's data; what the receiving side holds and the other side cannot carry is kept:
// the handheld profile's settings on export, the desktop day's "Personal", "Professional" and
// "Fitness" notes on import.

// A value in its unit as the handheld stores it: times 10 (single precision), truncated toward
// zero, and only the low 16 bits kept, so 6553.6 and more wrap around and negative values come
// out as their two's complement. Not a number gives 0.
std::uint16_t toTenths(float value);

// A desktop custom food as a handheld food: the same number and name, the base amount (value 0)
// from the serving weight in grams, every nutrient of the handheld's table from the food's value
// under that NutrientId (0 when the catalogue lacks it), each through toTenths; the four float
// values receive the same 16-bit integer as a float. Values 6 and 7 are 0, no measures.
model::TandryFood exportFood(const model::FoodItem& food,
                             const model::NutrientCatalogue& catalogue);

// A handheld food as a desktop custom food: the same number and name, every nutrient at 0 except
// those of the handheld's table (value x 0.1, stored as a float under its NutrientId when the
// catalogue has it), the serving weight from the base amount (x 0.1; 100 g for numbers below
// 50001), the measures with their amounts x 0.1 as grams. The computed per-cent and points values
// and values 6 and 7 are not taken.
model::FoodItem importFood(const model::TandryFood& food,
                           const model::NutrientCatalogue& catalogue);

// True when the user has nutrient goals: a goal list with a value for each of its nutrients.
bool hasGoals(const model::User& user);
// The profile's goal for each of its 33 nutrients that the user's goal list holds becomes the
// user's goal value of that nutrient (as a float); the user's other goals are left alone. Nothing
// happens when the user has no goals.
void importGoals(const model::TandryProfile& profile, model::User& user);
// The reverse: each of the 33 goals whose nutrient the user's goal list holds takes the user's
// value; the profile's other goals stay as the handheld had them.
void exportGoals(const model::User& user, model::TandryProfile& profile);

// The whole import: the six id counters (kept above the identifiers in use), the custom foods and
// the four definition lists unless the handheld's list is empty, the journal days and the goals.
// Each handheld day, in file order, becomes a desktop day at 01:00 local time of its date with its
// day values, meals, workouts and its note as the "Diet" note; the other notes of the desktop day
// it replaces (the first one of the same date) are kept, and desktop days that no handheld day
// replaces keep only those notes (and are dropped when none is left).
void importTandry(const model::TandryShared& handheld, const model::TandryUser& user,
                  const model::NutrientCatalogue& catalogue, model::SharedData& shared,
                  model::UserJournal& journal);

// The whole export into a store whose user file has been read (or is fresh): the counters, the
// foods, the definition lists and the days replaced by the desktop's, the goals set from the
// user's. Every desktop day becomes a handheld day with its "Diet" note; dates are not checked
// here (see daysBeyondSignedTimes).
void exportTandry(const model::SharedData& shared, const model::UserJournal& journal,
                  const model::NutrientCatalogue& catalogue, model::TandryShared& handheld,
                  model::TandryUser& user);

} // namespace velmora::sync
