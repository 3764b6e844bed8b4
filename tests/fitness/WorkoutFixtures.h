#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "model/DateText.h"
#include "model/UserDatabase.h"

namespace velmora::test {

// Fields Reps (1, Number), Weight (2, Number), Time (3, Time); exercises Press (10: Reps, Weight)
// and Row (11: Reps, Time, and a field 99 that no longer exists); routines Push (20) and
// Pull (21).
inline model::SharedData workoutDefinitions()
{
    model::SharedData shared;
    shared.fields = {{1, "Reps", 0}, {2, "Weight", 0}, {3, "Time", 2}};
    shared.exercises = {{10, "Press", {1, 2}}, {11, "Row", {1, 3, 99}}};
    shared.routines = {{20, 0, "Push", {10, 11}}, {21, 0, "Pull", {11}}};
    return shared;
}

inline model::TimeT at(model::CalendarDate date, int hour, int minute)
{
    return date.toTime() + hour * 3600 + minute * 60;
}

// A set of an exercise with (field, value) pairs.
inline model::ExerciseRecord
setOf(std::int32_t exercise, std::int32_t number,
      std::initializer_list<std::pair<std::int32_t, const char*>> values)
{
    model::ExerciseRecord set;
    set.exercise = exercise;
    set.setNumber = number;
    for (const auto& [field, value] : values)
        set.values.push_back({field, value});
    return set;
}

inline model::WorkoutEntry workoutOf(std::int32_t routine, model::TimeT time, std::int32_t calories,
                                     std::initializer_list<model::ExerciseRecord> sets,
                                     std::string notes = {})
{
    model::WorkoutEntry w;
    w.routine = routine;
    w.time = time;
    w.calories = calories;
    w.exercises = sets;
    w.notes = std::move(notes);
    return w;
}

inline model::JournalDay dayOf(model::CalendarDate date,
                               std::initializer_list<model::WorkoutEntry> workouts)
{
    model::JournalDay day;
    day.date = date.toTime();
    day.workouts = workouts;
    return day;
}

} // namespace velmora::test
