#pragma once

namespace velmora::ui {

// What an edit changed, as the application tells the pages (and its saving) after it.
enum class Change
{
    Journal,     // the current user's days: meals, entries, health, workouts, notes
    Profile,     // the current user's profile record and page settings
    Definitions, // the shared definitions: custom foods, fields, exercises, routines, variables
    Users,       // the user names, or which user is current
    Everything   // the records were replaced (a backup restored, damaged files salvaged)
};

} // namespace velmora::ui
