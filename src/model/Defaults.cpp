#include "model/Defaults.h"

#include "model/FoodDatabase.h"

namespace velmora::model {

namespace {

constexpr DefaultField DefaultFields[] = {{"Reps", 0},     {"Weight", 0},  {"Pace", 1},
                                          {"Comment", 1},  {"Time", 2},    {"Level", 0},
                                          {"Location", 1}, {"Max. HR", 0}, {"Ave. HR", 0}};

constexpr const char* StrengthExercises[] = {"Bench Press",     "Incline Press",
                                             "Shoulder Press",  "Lateral Raises",
                                             "Incline Situps",  "Incline Crunch's",
                                             "Lying Leg Raise", "Incline Leg Raise",
                                             "Deadlift",        "DB Row",
                                             "Rear Delt Raise", "Overhead DB Tricep Press",
                                             "Tricep Kickback", "Shrugs",
                                             "Lunge",           "Alt. DB Curl",
                                             "Preacher Curl",   "Reverse Wrist Curl",
                                             "Squat",           "Alt. Calf Raise"};

constexpr const char* const EnduranceExercises[] = {"Running",
                                                    "Treadmill",
                                                    "Rowing",
                                                    "Row Machine",
                                                    "Cycling",
                                                    "Cycling Machine",
                                                    "Stair Climbing",
                                                    "Stair Machine",
                                                    "Elliptacle",
                                                    "Downhill Skiing",
                                                    "Cross-Country Skiing",
                                                    "Ski Machine"};

} // namespace

std::span<const DefaultField> defaultExerciseFields()
{
    return DefaultFields;
}

std::span<const char* const> defaultEnduranceExercises()
{
    return EnduranceExercises;
}

void createExampleUser(SharedData& shared)
{
    shared.currentUser = 0;
    shared.userNames = {"Example User"};

    std::vector<std::int32_t> fieldIds;
    for (const DefaultField& f : DefaultFields) {
        ExerciseField field;
        field.id = shared.counters.take(IdCounters::ExerciseField);
        field.name = f.name;
        field.kind = f.kind;
        fieldIds.push_back(field.id);
        shared.fields.push_back(std::move(field));
    }
    // Strength: Reps, Weight, Pace, Comment. Endurance: Pace .. Ave. HR (the seven of the list's
    // end).
    const std::vector<std::int32_t> strength(fieldIds.begin(), fieldIds.begin() + 4);
    const std::vector<std::int32_t> endurance(fieldIds.begin() + 2, fieldIds.end());
    for (const char* name : StrengthExercises)
        shared.exercises.push_back(
            Exercise{shared.counters.take(IdCounters::Exercise), name, strength});
    for (const char* name : EnduranceExercises)
        shared.exercises.push_back(
            Exercise{shared.counters.take(IdCounters::Exercise), name, endurance});
}

void applyExampleProfile(User& user, const SharedData& shared)
{
    user.fitnessColumns.fill(-1);
    std::size_t slot = 0;
    for (const char* wanted : {"Reps", "Weight", "Time"}) {
        for (const ExerciseField& f : shared.fields) {
            if (f.name == wanted) {
                user.fitnessColumns[slot++] = f.id;
                break;
            }
        }
    }
}

User newUserProfile(const FoodDatabase& foods)
{
    User user;
    user.goalNutrients = defaultGoalNutrients(foods);
    return user;
}

} // namespace velmora::model
