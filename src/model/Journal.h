#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Archive.h"

namespace velmora::model {

// One food eaten in a meal: amount in units of 100 g (grams = amount x 100) for database foods,
// in servings for custom foods.
struct FoodEntry
{
    std::int32_t food = 0;
    float amount = 0.0f;
};

inline constexpr int MealKindCount = 10;
// "Breakfast", "Brunch", "Lunch", "Dinner", "Meal 5" .. "Meal 10".
extern const std::array<const char*, MealKindCount> MealNames;

struct Meal
{
    TimeT time = 0;
    std::uint8_t kind = 0; // 0..9, index into MealNames
    std::vector<FoodEntry> entries;
};

// One use of a user variable inside a health entry.
// File order: variable, text, number, time.
struct VariableUse
{
    std::int32_t variable = 0;
    float number = 0.0f;
    std::string text;
    TimeT time = 0;
};

inline constexpr int MeasurementCount = 14;
// Stored order of the measurements: right before left in each pair.
enum class Measurement {
    Neck, Shoulders, Chest, Stomach, Waist, Hips, RightBicep, LeftBicep,
    RightForearm, LeftForearm, RightThigh, LeftThigh, RightCalf, LeftCalf
};

// Health values of one day. File order: wake time; height, weight, systolic, diastolic, sleep,
// pulse, body fat, BMI; temperature, then VO2 max (swapped against the field order, on purpose);
// mood; the 14 measurements; the variable uses.
struct HealthEntry
{
    TimeT wakeTime = 0;
    float height = 0.0f;
    float weight = 0.0f;
    float systolic = 0.0f;
    float diastolic = 0.0f;
    float sleep = 0.0f;
    float pulse = 0.0f;
    float bodyFat = 0.0f;
    float bmi = 0.0f;
    float vo2Max = 0.0f;
    float temperature = 0.0f;
    std::int8_t mood = 2; // 0 "Bad" .. 4 "Excellent"; new entries "OK"
    std::array<float, MeasurementCount> measurements{};
    std::vector<VariableUse> variables;

    // True when no value is set: every number 0, no wake time and no variable uses (the mood does
    // not count, a new entry has mood 2).
    bool isEmpty() const;
    float measurement(Measurement m) const { return measurements[static_cast<std::size_t>(m)]; }
};

struct ExerciseValue
{
    std::int32_t field = 0;
    std::string value;
};

// One set of an exercise done in a workout.
struct ExerciseRecord
{
    std::int32_t exercise = -1;
    std::int32_t setNumber = 0; // 0-based among the sets of the same exercise in the workout
    TimeT time = 0;
    std::vector<ExerciseValue> values;
};

// One workout of a day. File order: routine, calories, time, notes, records.
struct WorkoutEntry
{
    std::int32_t routine = -1;
    std::int32_t calories = 0;
    TimeT time = 0;
    std::vector<ExerciseRecord> exercises;
    std::string notes;
};

inline constexpr int NoteCategoryCount = 4;
// "Personal", "Professional", "Diet", "Fitness".
extern const std::array<const char*, NoteCategoryCount> NoteCategoryNames;

struct JournalDay
{
    TimeT date = 0;
    HealthEntry health;
    std::vector<Meal> meals;
    std::vector<WorkoutEntry> workouts;
    std::array<std::string, NoteCategoryCount> notes;

    // The meal of a kind, first match, or nullptr.
    Meal* findMeal(int kind);
    const Meal* findMeal(int kind) const;
    // True when the day holds nothing worth keeping: empty health entry, no meal with an entry,
    // no workout, no note.
    bool isEmpty() const;
};

inline constexpr int FieldKindCount = 3;
// "Number", "Text", "Time".
extern const std::array<const char*, FieldKindCount> FieldKindNames;

struct ExerciseField
{
    std::int32_t id = 0;
    std::string name;
    std::int32_t kind = 0; // 0 Number, 1 Text, 2 Time
};

struct Exercise
{
    std::int32_t id = -1;
    std::string name;
    std::vector<std::int32_t> fields;
};

struct Routine
{
    std::int32_t id = 0;
    std::int32_t calories = 0;
    std::string name;
    std::vector<std::int32_t> exercises; // in the order they are done
};

struct UserVariable
{
    std::int32_t id = 0;
    std::string name;
    float number = 0.0f; // the locked number
    std::string text;    // the locked text
    TimeT time = 0;      // new definitions take the current time
    std::int32_t askNumber = 1; // "Edit every time" flags
    std::int32_t askText = 1;
    std::int32_t askTime = 1;
};

} // namespace velmora::model
