#include "support/Builders.h"

#include <random>
#include <stdexcept>

namespace velmora::test {

using namespace velmora::model;

std::vector<NutrientDef> catalogueOf(std::initializer_list<NutrientId> numbers)
{
    std::vector<NutrientDef> out;
    for (NutrientId n : numbers)
        out.push_back(NutrientDef{n, "g", "N" + std::to_string(n)});
    return out;
}

std::vector<NutrientDef> standardCatalogue()
{
    return {{203, "g", "Protein"},       {204, "g", "Total lipid (fat)"},
            {205, "g", "Carbohydrate"},  {208, "kcal", "Energy"},
            {291, "g", "Fiber"},         {502, "g", "Threonine"},
            {503, "g", "Isoleucine"},    {504, "g", "Leucine"},
            {505, "g", "Lysine"},        {506, "g", "Methionine"},
            {508, "g", "Phenylalanine"}, {509, "g", "Tyrosine"},
            {510, "g", "Valine"},        {512, "g", "Histidine"}};
}

FoodBuilder::FoodBuilder(const std::vector<NutrientDef>& catalogue, std::int32_t number,
                         std::string name)
    : m_catalogue(catalogue)
{
    m_food.number = number;
    m_food.name = std::move(name);
}

FoodBuilder& FoodBuilder::group(std::int32_t g)
{
    m_food.group = g;
    return *this;
}

FoodBuilder& FoodBuilder::value(NutrientId n, float v)
{
    for (std::size_t i = 0; i < m_catalogue.size() && i < m_food.values.size(); ++i) {
        if (m_catalogue[i].number == n) {
            m_food.values[i] = v;
            return *this;
        }
    }
    throw std::invalid_argument("nutrient not in the test catalogue: " + std::to_string(n));
}

FoodBuilder& FoodBuilder::measure(float grams, std::string description)
{
    m_food.measures.push_back(FoodMeasure{grams, std::move(description)});
    return *this;
}

FoodBuilder& FoodBuilder::serving(float grams)
{
    m_food.servingWeight = grams;
    return *this;
}

JournalDay dayWithMeal(TimeT date, int mealKind,
                       std::initializer_list<std::pair<std::int32_t, float>> entries)
{
    JournalDay day;
    day.date = date;
    Meal meal;
    meal.time = date + 8 * 3600;
    meal.kind = static_cast<std::uint8_t>(mealKind);
    for (const auto& [food, amount] : entries)
        meal.entries.push_back(FoodEntry{food, amount});
    day.meals.push_back(std::move(meal));
    return day;
}

FoodDatabase generatedFoods(int foodCount, unsigned seed)
{
    std::mt19937 rng(seed);
    std::uniform_real_distribution<float> grams(0.0f, 30.0f);
    FoodDatabase db;
    db.setCatalogue(standardCatalogue());
    db.addGroup(FoodGroup{100, "Generated Foods"});
    for (int i = 0; i < foodCount; ++i) {
        FoodItem f;
        f.number = 1000 + i;
        f.group = 100;
        f.name = "Generated food " + std::to_string(i);
        for (std::size_t k = 0; k < standardCatalogue().size(); ++k)
            f.values[k] = grams(rng);
        f.values[3] = 50.0f + grams(rng) * 10.0f; // energy
        f.measures.push_back(FoodMeasure{100.0f, "serving"});
        f.measures.push_back(FoodMeasure{28.35f, "oz"});
        db.addFood(std::move(f));
    }
    return db;
}

std::vector<JournalDay> generatedJournal(const FoodDatabase& db, const JournalShape& shape,
                                         unsigned seed)
{
    std::mt19937 rng(seed);
    const auto& foods = db.foods();
    std::uniform_int_distribution<std::size_t> pick(0, foods.empty() ? 0 : foods.size() - 1);
    std::uniform_real_distribution<float> amount(0.1f, 3.0f);
    constexpr TimeT Start = 1420070400; // 2015-01-01 00:00:00 UTC
    std::vector<JournalDay> days;
    days.reserve(static_cast<std::size_t>(shape.days));
    for (int d = 0; d < shape.days; ++d) {
        JournalDay day;
        day.date = Start + static_cast<TimeT>(d) * 86400;
        if (shape.healthPerDay > 0) {
            day.health.wakeTime = day.date + 7 * 3600;
            day.health.weight = 150.0f + static_cast<float>(d % 20);
            day.health.pulse = 60.0f;
            day.health.systolic = 120.0f;
            day.health.diastolic = 80.0f;
            day.health.temperature = 98.6f;
            day.health.measurements[4] = 32.0f;
            day.health.variables.push_back(VariableUse{1, 1.0f, "vitamin", day.date + 8 * 3600});
        }
        for (int m = 0; m < shape.mealsPerDay; ++m) {
            Meal meal;
            meal.kind = static_cast<std::uint8_t>(m % MealKindCount);
            meal.time = day.date + (7 + 4 * m) * 3600;
            for (int f = 0; f < shape.foodsPerMeal && !foods.empty(); ++f)
                meal.entries.push_back(FoodEntry{foods[pick(rng)].number, amount(rng)});
            day.meals.push_back(std::move(meal));
        }
        for (int w = 0; w < shape.workoutsPerDay; ++w) {
            WorkoutEntry workout;
            workout.routine = 1;
            workout.calories = 300;
            workout.time = day.date + 18 * 3600;
            workout.notes = "felt good";
            for (int s = 0; s < 3; ++s) {
                ExerciseRecord r;
                r.exercise = 1;
                r.setNumber = s;
                r.time = workout.time + s * 120;
                r.values.push_back(ExerciseValue{1, "10"});
                r.values.push_back(ExerciseValue{2, "135"});
                workout.exercises.push_back(std::move(r));
            }
            day.workouts.push_back(std::move(workout));
        }
        day.notes[0] = "Day " + std::to_string(d);
        days.push_back(std::move(day));
    }
    return days;
}

} // namespace velmora::test
