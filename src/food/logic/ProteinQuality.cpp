#include "food/logic/ProteinQuality.h"

#include "model/FoodDatabase.h"
#include "model/Nutrition.h"

namespace velmora::food {

ProteinComparison compareProtein(const model::NutrientCatalogue& catalogue,
                                 const model::FoodItem& food)
{
    ProteinComparison c;
    for (std::size_t i = 0; i < model::IdealProtein.size(); ++i)
        c.ideal[i] = model::IdealProtein[i].reference;
    const double protein = model::foodValue(catalogue, food, model::nutrient::Protein);
    c.completeness = model::proteinScore(catalogue, food);
    if (!(protein >= ProteinChartMinimum))
        return c;
    c.shown = true;
    for (std::size_t i = 0; i < model::IdealProtein.size(); ++i) {
        const double amino = model::foodValue(catalogue, food, model::IdealProtein[i].nutrient);
        c.food[i] = static_cast<int>(amino / protein * 1000.0);
    }
    return c;
}

std::string completenessSentence(double completeness)
{
    return model::formatText("This foods protein is %0.1lf %% complete.", completeness * 100.0);
}

std::string sourceLine(std::int32_t foodNumber, const std::string& release)
{
    if (foodNumber >= model::FirstUserDefinedNumber)
        return "Source: User defined";
    return "Source: " + (release.empty() ? std::string("USDA SR15") : release) + " Database";
}

std::vector<NutrientRow> allNutrientRows(const model::NutrientCatalogue& catalogue,
                                         const model::FoodItem& food)
{
    std::vector<NutrientRow> rows;
    rows.reserve(catalogue.entries().size());
    for (const model::NutrientDef& def : catalogue.entries()) {
        double v = model::foodValue(catalogue, food, def.number);
        if (def.number == model::nutrient::ProteinScore)
            v *= model::foodValue(catalogue, food, model::nutrient::Protein);
        rows.push_back({def.name, model::formatText("%.1f", v)});
    }
    return rows;
}

} // namespace velmora::food
