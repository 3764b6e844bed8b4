#include "model/Store.h"

#include "model/Normalisation.h"

namespace velmora::model {

Store::Store(const Store& other)
    : foods(other.foods), shared(other.shared), journal(other.journal), m_files(other.m_files)
{
    m_files.rebind(*this);
}

Store::Store(Store&& other) noexcept
    : foods(std::move(other.foods)), shared(std::move(other.shared)),
      journal(std::move(other.journal)), m_files(std::move(other.m_files))
{
    m_files.rebind(*this);
}

Store& Store::operator=(const Store& other)
{
    if (this != &other) {
        foods = other.foods;
        shared = other.shared;
        journal = other.journal;
        m_files = other.m_files;
        m_files.rebind(*this);
    }
    return *this;
}

Store& Store::operator=(Store&& other) noexcept
{
    foods = std::move(other.foods);
    shared = std::move(other.shared);
    journal = std::move(other.journal);
    m_files = std::move(other.m_files);
    m_files.rebind(*this);
    return *this;
}

void Store::normalise()
{
    model::normalise(shared, journal.days);
}

const FoodItem* Store::findFood(std::int32_t number) const
{
    if (number >= FirstCustomFoodNumber) {
        for (const FoodItem& f : shared.customFoods)
            if (f.number == number)
                return &f;
        return nullptr;
    }
    return foods.findDatabaseFood(number);
}

FoodItem* Store::findCustomFood(std::int32_t number)
{
    for (FoodItem& f : shared.customFoods)
        if (f.number == number)
            return &f;
    return nullptr;
}

ExerciseField* Store::findField(std::int32_t id)
{
    for (ExerciseField& f : shared.fields)
        if (f.id == id)
            return &f;
    return nullptr;
}

Exercise* Store::findExercise(std::int32_t id)
{
    for (Exercise& e : shared.exercises)
        if (e.id == id)
            return &e;
    return nullptr;
}

Routine* Store::findRoutine(std::int32_t id)
{
    for (Routine& r : shared.routines)
        if (r.id == id)
            return &r;
    return nullptr;
}

UserVariable* Store::findVariable(std::int32_t id)
{
    for (UserVariable& v : shared.variables)
        if (v.id == id)
            return &v;
    return nullptr;
}

std::string Store::currentUserName() const
{
    return shared.currentUser < shared.userNames.size() ? shared.userNames[shared.currentUser]
                                                        : std::string();
}

} // namespace velmora::model
