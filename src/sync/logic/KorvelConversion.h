#pragma once

#include "model/KorvelFiles.h"
#include "model/UserDatabase.h"

namespace velmora::sync {

// Conversions between the desktop records and the workout handheld's. The workout handheld
// carries the definition lists and, per day, the day values, the workouts and the "Fitness" note;
// these replace the receiving side's. Meals and the other notes stay on the desktop.

// The whole import: the four counters become the desktop's counters of exercise fields,
// exercises, routines and the spare one (all kept above the identifiers in use); the four
// definition lists replace the desktop's unless the handheld's list is empty. Every desktop day
// loses its day values, workouts and "Fitness" note; each handheld day then gives them to the
// first desktop day of the same local date not yet given any, or becomes a new day at 01:00 local
// time of its date. Desktop days that the import leaves with nothing are dropped.
void importKorvel(const model::KorvelShared& handheld, const model::KorvelUser& user,
                  model::SharedData& shared, model::UserJournal& journal);

// The whole export: the counters and definition lists from the desktop, and one handheld day for
// every desktop day that holds day values, a workout or a "Fitness" note, in journal order. The
// profile is kept as read. Dates are not checked here (see daysBeyondSignedTimes).
void exportKorvel(const model::SharedData& shared, const model::UserJournal& journal,
                  model::KorvelShared& handheld, model::KorvelUser& user);

// The desktop days that an export carries to the workout handheld.
bool carriedToKorvel(const model::JournalDay& day);

} // namespace velmora::sync
