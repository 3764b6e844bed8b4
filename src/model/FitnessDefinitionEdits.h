#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/Journal.h"

namespace velmora::model {

class Store;
struct SharedData;

// The edits of the fitness definitions (fields, exercises, routines, user variables), for the
// definition dialogs. Names are stored as definitionName gives them (model/DefinitionEdits.h);
// a store updates the definition of exactly that stored name, or appends a new one under the next
// number of its counter.

// The position of the definition with exactly that name (case-sensitive, first match), which a
// store updates; nothing when the store makes a new definition.
template <typename Definition>
std::optional<std::size_t> definitionNamed(const std::vector<Definition>& list,
                                           const std::string& name)
{
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].name == name)
            return i;
    return std::nullopt;
}

// One row of the field list of "Define Exercises".
struct FieldRow
{
    std::int32_t field = 0;
    bool checked = false;
};

// The field list that storing "Define Exercises" gives an exercise. An existing exercise keeps its
// order: unchecked fields leave it and checked fields it lacks are appended in row order. A new
// exercise (existing == nullptr) takes the checked fields in row order, and is not made at all
// when no row is checked: then the result is nothing.
std::optional<std::vector<std::int32_t>>
exerciseFieldsAfterStore(const Exercise* existing, const std::vector<FieldRow>& rows);

// Which of a variable's number, text and time are asked each time it is used.
struct AskedParts
{
    bool number = false;
    bool text = false;
    bool time = false;
};

// "Add/Define Variable": the values its controls hold for one definition.
struct VariableForm
{
    float number = 0.0f;
    std::string text;
    TimeT time = 0;
    AskedParts ask{true, true, true}; // the three "Edit every time" choices
};

// Copies the form into a definition: the three flags and the locked number, text and time.
void applyVariableForm(UserVariable& definition, const VariableForm& form);

// "Define Fields": stores a field under a typed name with a type code 0-2 (others are clamped to
// that range). The field of exactly that name gets the type; otherwise a new field takes the next
// field identifier. Returns the field's identifier, nothing for a blank name.
std::optional<std::int32_t> storeField(SharedData& shared, const std::string& typedName, int kind);

// "Define Exercises": stores an exercise under a typed name with the checked rows of the field
// list (exerciseFieldsAfterStore). Returns the exercise's identifier; nothing for a blank name or
// a new exercise with no field checked, which makes nothing.
std::optional<std::int32_t> storeExercise(SharedData& shared, const std::string& typedName,
                                          const std::vector<FieldRow>& rows);

// "Define Routines": stores a routine under a typed name with its exercises in order and its
// calories. Returns its identifier; nothing for a blank name.
std::optional<std::int32_t> storeRoutine(SharedData& shared, const std::string& typedName,
                                         const std::vector<std::int32_t>& exercises,
                                         std::int32_t calories);

// "Add/Define Variable": stores a variable under a typed name with the form's flags and locked
// values. Returns its identifier; nothing for a blank name.
std::optional<std::int32_t> storeVariable(SharedData& shared, const std::string& typedName,
                                          const VariableForm& form);

// The deletes of the definition dialogs. Each removes the definition of that identifier (a field
// by its exact name) and then runs the store's clean-up, which drops every reference to it:
// a field from the exercises and the recorded sets, an exercise from the routines and the
// workouts, a routine's workouts, a variable's uses in the health entries. False when there is no
// such definition.
bool deleteField(Store& store, const std::string& name);
bool deleteExercise(Store& store, std::int32_t id);
bool deleteRoutine(Store& store, std::int32_t id);
bool deleteVariable(Store& store, std::int32_t id);

} // namespace velmora::model
