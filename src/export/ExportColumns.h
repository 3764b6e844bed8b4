#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/Journal.h"
#include "model/Nutrients.h"

namespace velmora::model {
class NutrientCatalogue;
}

namespace velmora::exchange {

// One nutrient column of servings.csv and daily.csv: the nutrient and its header, the name with
// the unit in parentheses (e.g. "Protein (g)", "Vitamin B12 (µg)", "Energy from fat (%)"), in
// UTF-8.
struct NutrientColumn
{
    model::NutrientId nutrient = 0;
    std::string header;
    std::string unit; // "g", "kcal", "%", ...; empty for points
};

// The nutrient columns of an export: every stored nutrient of the catalogue in catalogue order
// (a number listed twice is taken once), then the computed ones: the three energy shares, points,
// net carbohydrate and complete protein (protein weighted by its amino-acid score, in grams). The
// weight eaten (104) has a column of its own and is not among them.
std::vector<NutrientColumn> nutrientColumns(const model::NutrientCatalogue& catalogue);

// The unit system of a user's stored health values: pounds and inches, or kilograms and
// centimetres in metric mode. Temperatures are kept as entered: Fahrenheit and Celsius by the
// same flag.
struct HealthUnits
{
    bool metric = false;
    const char* weight() const { return metric ? "kg" : "lb"; }
    const char* length() const { return metric ? "cm" : "in"; }
    const char* temperature() const
    {
        return metric ? "\xC2\xB0"
                        "C"
                      : "\xC2\xB0"
                        "F";
    }
};

// The ten single health values in the order of health.csv.
enum class HealthValue
{
    Height,
    Weight,
    Systolic,
    Diastolic,
    Sleep,
    Pulse,
    BodyFat,
    Bmi,
    Vo2Max,
    Temperature
};
inline constexpr int HealthValueCount = 10;

// Header of a single health value with its unit, e.g. "Weight (kg)", "Body fat (%)", "BMI".
std::string healthHeader(HealthValue v, const HealthUnits& units);
// The stored field of a single health value.
float healthValue(const model::HealthEntry& h, HealthValue v);

// The 14 measurements in the order of health.csv (each pair left before right) with their names
// ("Neck", ..., "Left bicep", "Right bicep", ...).
struct MeasurementColumn
{
    model::Measurement measurement;
    const char* name;
};
extern const std::array<MeasurementColumn, model::MeasurementCount> MeasurementColumns;

// "Neck (in)" and the like.
std::string measurementHeader(const MeasurementColumn& c, const HealthUnits& units);

// The word of a mood index: "Bad", "Poor", "OK", "Good", "Excellent"; empty out of range.
std::string moodWord(int mood);

} // namespace velmora::exchange
