#include "model/Journal.h"

namespace velmora::model {

const std::array<const char*, MealKindCount> MealNames = {"Breakfast", "Brunch", "Lunch",  "Dinner",
                                                          "Meal 5",    "Meal 6", "Meal 7", "Meal 8",
                                                          "Meal 9",    "Meal 10"};

const std::array<const char*, NoteCategoryCount> NoteCategoryNames = {"Personal", "Professional",
                                                                      "Diet", "Fitness"};

const std::array<const char*, FieldKindCount> FieldKindNames = {"Number", "Text", "Time"};

bool HealthEntry::isEmpty() const
{
    if (wakeTime != 0 || !variables.empty())
        return false;
    const float numbers[] = {height, weight,  systolic, diastolic, sleep,
                             pulse,  bodyFat, bmi,      vo2Max,    temperature};
    for (float v : numbers)
        if (v != 0.0f)
            return false;
    for (float v : measurements)
        if (v != 0.0f)
            return false;
    return true;
}

Meal* JournalDay::findMeal(int kind)
{
    for (Meal& m : meals)
        if (m.kind == kind)
            return &m;
    return nullptr;
}

const Meal* JournalDay::findMeal(int kind) const
{
    for (const Meal& m : meals)
        if (m.kind == kind)
            return &m;
    return nullptr;
}

bool JournalDay::isEmpty() const
{
    if (!health.isEmpty() || !workouts.empty())
        return false;
    for (const Meal& m : meals)
        if (!m.entries.empty())
            return false;
    for (const std::string& n : notes)
        if (!n.empty())
            return false;
    return true;
}

} // namespace velmora::model
