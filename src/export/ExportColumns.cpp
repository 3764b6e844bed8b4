#include "export/ExportColumns.h"

#include <unordered_set>

#include "model/Nutrients.h"
#include "model/TextCodec.h"

namespace velmora::exchange {

using model::Measurement;
namespace nutrient = model::nutrient;

namespace {

std::string withUnit(std::string name, const std::string& unit)
{
    // Names from the food database already end with their unit, e.g. "Energy (kcal)".
    const std::string suffix = " (" + unit + ")";
    const bool named = name.size() >= suffix.size() &&
                       name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0;
    if (!unit.empty() && !named)
        name += suffix;
    return name;
}

struct ComputedColumn
{
    model::NutrientId nutrient;
    const char* header;
    const char* unit;
};

// The pages' short names ("% Fat", "Carbs, Net") read in a spreadsheet as the fat share by
// weight and as a column about carbs; the files name what the values are, with the unit last
// like every other column.
constexpr ComputedColumn Computed[] = {
    {nutrient::PercentFat, "Energy from fat (%)", "%"},
    {nutrient::PercentCarb, "Energy from carbohydrate (%)", "%"},
    {nutrient::PercentProtein, "Energy from protein (%)", "%"},
    {nutrient::Points, "Points", ""},
    {nutrient::NetCarbs, "Net carbohydrate (g)", "g"},
    {nutrient::ProteinScore, "Complete protein (g)", "g"},
};

} // namespace

std::vector<NutrientColumn> nutrientColumns(const model::NutrientCatalogue& catalogue)
{
    std::vector<NutrientColumn> columns;
    std::unordered_set<model::NutrientId> taken;
    const auto& entries = catalogue.entries();
    for (std::size_t i = 0; i < catalogue.fileCount() && i < entries.size(); ++i) {
        const model::NutrientDef& d = entries[i];
        if (nutrient::isComputed(d.number) || !taken.insert(d.number).second)
            continue;
        const std::string unit = model::cp1252ToUtf8(d.shortText);
        columns.push_back({d.number, withUnit(model::cp1252ToUtf8(d.name), unit), unit});
    }
    for (const ComputedColumn& c : Computed)
        columns.push_back({c.nutrient, c.header, c.unit});
    return columns;
}

std::string healthHeader(HealthValue v, const HealthUnits& units)
{
    const std::string length = units.length();
    switch (v) {
    case HealthValue::Height:
        return "Height (" + length + ")";
    case HealthValue::Weight:
        return std::string("Weight (") + units.weight() + ")";
    case HealthValue::Systolic:
        return "Systolic blood pressure (mmHg)";
    case HealthValue::Diastolic:
        return "Diastolic blood pressure (mmHg)";
    case HealthValue::Sleep:
        return "Sleep (h)";
    case HealthValue::Pulse:
        return "Pulse (bpm)";
    case HealthValue::BodyFat:
        return "Body fat (%)";
    case HealthValue::Bmi:
        return "BMI";
    case HealthValue::Vo2Max:
        return "VO2 max (mL/kg/min)";
    case HealthValue::Temperature:
        return std::string("Temperature (") + units.temperature() + ")";
    }
    return {};
}

namespace {

// The field of each single health value, in the order of HealthValue.
constexpr float model::HealthEntry::*HealthFields[HealthValueCount] = {
    &model::HealthEntry::height,     &model::HealthEntry::weight, &model::HealthEntry::systolic,
    &model::HealthEntry::diastolic,  &model::HealthEntry::sleep,  &model::HealthEntry::pulse,
    &model::HealthEntry::bodyFat,    &model::HealthEntry::bmi,    &model::HealthEntry::vo2Max,
    &model::HealthEntry::temperature};

} // namespace

float healthValue(const model::HealthEntry& h, HealthValue v)
{
    return h.*HealthFields[static_cast<std::size_t>(v)];
}

const std::array<MeasurementColumn, model::MeasurementCount> MeasurementColumns = {{
    {Measurement::Neck, "Neck"},
    {Measurement::Shoulders, "Shoulders"},
    {Measurement::Chest, "Chest"},
    {Measurement::Stomach, "Stomach"},
    {Measurement::Waist, "Waist"},
    {Measurement::Hips, "Hips"},
    {Measurement::LeftBicep, "Left bicep"},
    {Measurement::RightBicep, "Right bicep"},
    {Measurement::LeftForearm, "Left forearm"},
    {Measurement::RightForearm, "Right forearm"},
    {Measurement::LeftThigh, "Left thigh"},
    {Measurement::RightThigh, "Right thigh"},
    {Measurement::LeftCalf, "Left calf"},
    {Measurement::RightCalf, "Right calf"},
}};

std::string measurementHeader(const MeasurementColumn& c, const HealthUnits& units)
{
    return std::string(c.name) + " (" + units.length() + ")";
}

std::string moodWord(int mood)
{
    static constexpr const char* Words[] = {"Bad", "Poor", "OK", "Good", "Excellent"};
    return mood >= 0 && mood < 5 ? Words[mood] : "";
}

} // namespace velmora::exchange
