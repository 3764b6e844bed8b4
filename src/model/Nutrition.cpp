#include "model/Nutrition.h"

namespace velmora::model {

// The ideal protein pattern in mg of amino acid per g of protein, in the order in which the score
// examines it. Row 1 reads 509 with the reference 7, and the sulphur and aromatic rows read 506
// and 508 alone: these pairings are part of how scores have always been computed here.
const std::array<AminoAcidReference, 9> IdealProtein = {{
    {509, "Tryptophan", 7, 0.14285714285714285},
    {512, "Histidine", 18, 0.05555555555555555},
    {506, "Methionine", 25, 0.04},
    {503, "IsoLeucine", 25, 0.04},
    {502, "Threonine", 27, 0.037037037037037035},
    {510, "Valine", 32, 0.03125},
    {505, "Lysine", 51, 0.0196078431372549},
    {508, "Phenylalanine", 47, 0.02127659574468085},
    {504, "Leucine", 55, 0.01818181818181818},
}};

namespace {

double storedValue(const NutrientCatalogue& catalogue, const FoodItem& food, NutrientId n)
{
    const int i = catalogue.indexOf(n);
    return i < 0 ? 0.0 : static_cast<double>(food.valueAt(i));
}

// The minimum rule shared by foods and groups: ratio r (mg per g of protein) of each row against
// its reference, the smallest share below 1.0 wins. A non-number ratio never replaces the score.
template <class AminoOf> double scoreOf(double protein, AminoOf&& amino)
{
    double s = 1.0;
    for (const AminoAcidReference& row : IdealProtein) {
        const double r = amino(row.nutrient) / protein * 1000.0;
        if (r < static_cast<double>(row.reference)) {
            const double q = r * row.multiplier;
            if (q < s)
                s = q;
        }
    }
    return s;
}

bool isEnergyShare(NutrientId n)
{
    return n >= nutrient::PercentFat && n <= nutrient::PercentProtein;
}

// The stored nutrient and the kcal per gram behind each energy share.
NutrientId shareSource(NutrientId n, double& kcalPerGram)
{
    switch (n) {
    case nutrient::PercentFat:
        kcalPerGram = 9.0;
        return nutrient::Fat;
    case nutrient::PercentCarb:
        kcalPerGram = 4.0;
        return nutrient::Carbohydrate;
    default:
        kcalPerGram = 4.0;
        return nutrient::Protein;
    }
}

} // namespace

double proteinScore(const NutrientCatalogue& catalogue, const FoodItem& food)
{
    const double protein = storedValue(catalogue, food, nutrient::Protein);
    return scoreOf(protein, [&](NutrientId n) { return storedValue(catalogue, food, n); });
}

double foodValue(const NutrientCatalogue& catalogue, const FoodItem& food, NutrientId n)
{
    if (n > nutrient::ProteinScore || (n != nutrient::ProteinScore && !nutrient::isComputed(n)))
        return storedValue(catalogue, food, n);
    if (n == nutrient::ProteinScore)
        return proteinScore(catalogue, food);
    if (isEnergyShare(n)) {
        const double energy = foodValue(catalogue, food, nutrient::Energy);
        if (energy == 0.0)
            return 0.0;
        double kcal = 0.0;
        const NutrientId source = shareSource(n, kcal);
        const double x = foodValue(catalogue, food, source) * kcal / energy * 100.0;
        return x > 100.0 ? 100.0 : x;
    }
    if (n == nutrient::Points) {
        double fibre = foodValue(catalogue, food, nutrient::Fibre);
        if (fibre > 4.0)
            fibre = 4.0;
        return foodValue(catalogue, food, nutrient::Energy) * 0.02 +
               foodValue(catalogue, food, nutrient::Fat) * 0.08333333333333333 - fibre * 0.2;
    }
    if (n == nutrient::Amount)
        return food.number >= FirstCustomFoodNumber ? proteinScore(catalogue, food) : 100.0;
    // NetCarbs
    const double d = foodValue(catalogue, food, nutrient::Carbohydrate) -
                     foodValue(catalogue, food, nutrient::Fibre);
    return d <= 0.0 ? 0.0 : d;
}

double entryFoodValue(const NutrientCatalogue& catalogue, const FoodItem& food, NutrientId n)
{
    if (n == nutrient::Amount && food.number >= FirstCustomFoodNumber)
        return static_cast<double>(food.servingWeight);
    return foodValue(catalogue, food, n);
}

double entryValue(const NutrientCatalogue& catalogue, const FoodItem& food, float amount,
                  NutrientId n)
{
    if (isEnergyShare(n))
        return foodValue(catalogue, food, n);
    if (n == nutrient::ProteinScore)
        return proteinScore(catalogue, food) * foodValue(catalogue, food, nutrient::Protein) *
               static_cast<double>(amount);
    return entryFoodValue(catalogue, food, n) * static_cast<double>(amount);
}

double groupValue(const NutrientCatalogue& catalogue, std::span<const ResolvedEntry> entries,
                  NutrientId n)
{
    const auto sum = [&](NutrientId m) {
        double total = 0.0;
        for (const ResolvedEntry& e : entries)
            total += entryValue(catalogue, *e.food, e.amount, m);
        return total;
    };
    if (isEnergyShare(n)) {
        const double energy = sum(nutrient::Energy);
        if (energy == 0.0)
            return 0.0;
        double kcal = 0.0;
        const NutrientId source = shareSource(n, kcal);
        double total = 0.0;
        for (const ResolvedEntry& e : entries)
            total += entryValue(catalogue, *e.food, e.amount, source) * kcal;
        const double ratio = total / energy;
        return ratio <= 1.0 ? ratio * 100.0 : 100.0;
    }
    if (n == nutrient::ProteinScore) {
        const double protein = sum(nutrient::Protein);
        return protein * scoreOf(protein, sum);
    }
    return sum(n);
}

std::array<double, StoredNutrientCount> groupStoredTotals(std::span<const ResolvedEntry> entries)
{
    std::array<double, StoredNutrientCount> totals{};
    for (const ResolvedEntry& e : entries) {
        const double amount = static_cast<double>(e.amount);
        const auto& values = e.food->values;
        for (std::size_t i = 0; i < totals.size(); ++i)
            totals[i] += static_cast<double>(values[i]) * amount;
    }
    return totals;
}

} // namespace velmora::model
