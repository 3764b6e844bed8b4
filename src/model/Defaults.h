#pragma once

#include <cstdint>
#include <span>

#include "model/UserDatabase.h"

namespace velmora::model {

class FoodDatabase;

// A default exercise field: its name and kind (0 number, 1 text, 2 time).
struct DefaultField
{
    const char* name;
    std::int32_t kind;
};

// The nine default exercise fields and the twelve default endurance exercises, which the
// workout handheld's defaults share.
std::span<const DefaultField> defaultExerciseFields();
std::span<const char* const> defaultEnduranceExercises();

// Turns the shared data into the example user's installation: current user 0, the single name
// "Example User", and the default definitions appended: 9 exercise fields (Reps, Weight, Pace,
// Comment, Time, Level, Location, Max. HR, Ave. HR), 20 strength exercises with the first four
// fields and 12 endurance exercises with the last seven (Pace .. Ave. HR), identifiers from
// counters 2 and 3.
void createExampleUser(SharedData& shared);

// The example user's fitness log columns: the fields Reps, Weight and Time of shared (by name,
// first match), the other slots unused.
void applyExampleProfile(User& user, const SharedData& shared);

// A new user's profile record: the defaults of User, with the goal list of a new user from the
// food database (empty when no food database is loaded).
User newUserProfile(const FoodDatabase& foods);

} // namespace velmora::model
