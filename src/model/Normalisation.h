#pragma once

#include <vector>

#include "model/Journal.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// The clean-up pass that every save writes and that the program applies to the live records at
// its own moments (loading, a change of user, the refresh of all pages):
//  1. exercises lose vanished fields; recorded exercises of vanished exercises go, and so do
//     values of vanished fields;
//  2. routines lose vanished exercises, keeping the order of the rest;
//  3. workouts of vanished routines go;
//  4. of custom foods sharing a number, the first stays;
//  5. the definition lists are sorted by name (exchange sort, byte-wise unsigned comparison).
void normalise(SharedData& shared, std::vector<JournalDay>& days);

// Steps 1, 2, 4 and 5 on the shared records alone.
void normaliseShared(SharedData& shared);
// Steps 1 and 3 on the days, against the definitions of shared.
void normaliseDays(std::vector<JournalDay>& days, const SharedData& shared);
// True when normaliseDays would change anything.
bool daysNeedNormalising(const std::vector<JournalDay>& days, const SharedData& shared);

} // namespace velmora::model
