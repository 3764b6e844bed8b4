#pragma once

#include <cstdint>
#include <vector>

#include "model/Nutrients.h"
#include "model/UserDatabase.h"

namespace velmora::test {

// A catalogue holding the diet handheld's thirty nutrients in an order unlike its value indexes,
// and a nutrient the handheld does not know (502).
model::NutrientCatalogue syncCatalogue();

// A desktop's records: two custom foods whose values are whole tenths, four definition lists,
// and a user "Dana" with goals and four days in March 2024 (local time), two of them on the same
// date:
//   10th: breakfast, day values, a workout, notes "Personal" p1, "Diet" d1, "Fitness" f1
//   11th: lunch and the "Diet" note d2
//   12th: only the "Personal" note p3
//   12th: a second day, at 01:00, with only a workout
struct Desktop
{
    model::SharedData shared;
    model::UserJournal journal;
};
Desktop sampleDesktop(const model::NutrientCatalogue& catalogue);

// A day serialised as the user database stores it, for comparing whole records.
std::vector<std::uint8_t> dayBytes(const model::JournalDay& day);
std::vector<std::uint8_t> definitionBytes(const model::SharedData& shared);

} // namespace velmora::test
