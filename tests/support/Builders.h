#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "model/FoodDatabase.h"
#include "model/Journal.h"

namespace velmora::test {

// A small catalogue whose entries are the given numbers, in order, named "N<number>" unless a name
// is given. The position of a number is the index of its value in every food.
std::vector<model::NutrientDef> catalogueOf(std::initializer_list<model::NutrientId> numbers);

// The catalogue used by most tests: the nutrients the logic relies on, then the amino acids.
//   203 protein, 204 fat, 205 carbohydrate, 208 energy, 291 fibre, 502..512 amino acids.
std::vector<model::NutrientDef> standardCatalogue();

// Builds a food whose values are set by nutrient number against the given catalogue.
class FoodBuilder
{
public:
    FoodBuilder(const std::vector<model::NutrientDef>& catalogue, std::int32_t number,
                std::string name = "Food");
    FoodBuilder& group(std::int32_t g);
    FoodBuilder& value(model::NutrientId n, float v);
    FoodBuilder& measure(float grams, std::string description);
    FoodBuilder& serving(float grams);
    model::FoodItem build() const { return m_food; }
    operator model::FoodItem() const { return m_food; }

private:
    const std::vector<model::NutrientDef>& m_catalogue;
    model::FoodItem m_food;
};

// A journal day with one meal of the given entries (food number, amount in units of 100 g).
model::JournalDay dayWithMeal(model::TimeT date, int mealKind,
                              std::initializer_list<std::pair<std::int32_t, float>> entries);

// Parameters of a generated journal.
struct JournalShape
{
    int days = 3650;
    int mealsPerDay = 4;
    int foodsPerMeal = 6;
    int workoutsPerDay = 1;
    int healthPerDay = 1; // 1: every day's health entry carries values, 0: left empty
};

// A food database of foodCount foods numbered from 1000 with pseudo-random values over the
// standard catalogue, each with two measures.
model::FoodDatabase generatedFoods(int foodCount, unsigned seed = 1);

// A journal of the given shape over the foods of db, days starting on 2015-01-01 (UTC midnight).
// Deterministic for a given seed.
std::vector<model::JournalDay> generatedJournal(const model::FoodDatabase& db,
                                                const JournalShape& shape, unsigned seed = 1);

} // namespace velmora::test
