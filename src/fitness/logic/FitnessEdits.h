#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fitness/logic/Definitions.h"
#include "fitness/logic/UserVariables.h"
#include "model/DateText.h"
#include "model/Journal.h"

namespace velmora::model {
class Store;
struct SharedData;
struct User;
struct UserJournal;
} // namespace velmora::model

namespace velmora::fitness {

// The edits of the health and fitness pages and dialogs: each user action that changes a record
// is one of these functions, so the widgets only read records and call them. Names and texts are
// Windows-1252 bytes.

// Stores a page's working health entry into the day of date (planHealthStore): the day's entry is
// replaced, or a day holding it is appended when the entry is not empty. True when a record
// changed (storing the entry a day already holds changes nothing).
bool storeHealthEntry(model::UserJournal& journal, const model::CalendarDate& date,
                      const model::HealthEntry& entry);

// "De&lete Entry": the entry of the day of date becomes a fresh empty one (mood "OK"). False when
// the user has no day of that date.
bool clearHealthEntry(model::UserJournal& journal, const model::CalendarDate& date);

// Stores the notes page's text of a category into the day of date (planNoteStore). True when a
// record changed.
bool storeNote(model::UserJournal& journal, const model::CalendarDate& date, int category,
               const std::string& text);

// Where a recorded workout lives: positions in the user's days and in that day's workouts.
struct WorkoutPlace
{
    std::size_t day = 0;
    std::size_t workout = 0;
};

// "OK" of "Do Routine": the sets are renumbered and the workout is appended to the workouts of the
// day of its date, a new day being appended when the user has none. When from names the workout's
// old place (an edit), it is taken out of that day first, so a changed date moves it. Returns the
// workout's new place.
WorkoutPlace commitWorkout(model::UserJournal& journal, model::WorkoutEntry workout,
                           std::optional<WorkoutPlace> from);

// "Delete" of the fitness log: removes the workout at place. False when there is none.
bool deleteWorkout(model::UserJournal& journal, const WorkoutPlace& place);

// "Columns..." of the fitness log: the ten field slots (-1 for empty; slots after the first empty
// one are emptied too). An emptied slot loses its saved width.
void setFitnessColumns(model::User& user, const std::array<int, 10>& chosen);
// A column of the fitness log resized by the user: column 0 is the date, 1-10 the field slots.
void setFitnessColumnWidth(model::User& user, int column, int width);

// "Define Fields": stores a field under a typed name (definitionName) with a type code 0-2. The
// field of exactly that name gets the type; otherwise a new field takes the next field
// identifier. Returns the field's identifier, nothing for a blank name.
std::optional<std::int32_t> storeField(model::SharedData& shared, const std::string& typedName,
                                       int kind);

// "Define Exercises": stores an exercise under a typed name with the checked rows of the field
// list (exerciseFieldsAfterStore). Returns the exercise's identifier; nothing for a blank name or
// a new exercise with no field checked, which makes nothing.
std::optional<std::int32_t> storeExercise(model::SharedData& shared, const std::string& typedName,
                                          const std::vector<FieldRow>& rows);

// "Define Routines": stores a routine under a typed name with its exercises in order and its
// calories. Returns its identifier; nothing for a blank name.
std::optional<std::int32_t> storeRoutine(model::SharedData& shared, const std::string& typedName,
                                         const std::vector<std::int32_t>& exercises,
                                         std::int32_t calories);

// "Add/Define Variable": stores a variable under a typed name with the form's flags and locked
// values. Returns its identifier; nothing for a blank name.
std::optional<std::int32_t> storeVariable(model::SharedData& shared, const std::string& typedName,
                                          const VariableForm& form);

// The deletes of the definition dialogs. Each removes the definition of that identifier (a field
// by its exact name) and then runs the store's clean-up, which drops every reference to it:
// a field from the exercises and the recorded sets, an exercise from the routines and the
// workouts, a routine's workouts, a variable's uses in the health entries. False when there is no
// such definition.
bool deleteField(model::Store& store, const std::string& name);
bool deleteExercise(model::Store& store, std::int32_t id);
bool deleteRoutine(model::Store& store, std::int32_t id);
bool deleteVariable(model::Store& store, std::int32_t id);

} // namespace velmora::fitness
