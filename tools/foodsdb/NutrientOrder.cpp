#include "NutrientOrder.h"

#include <array>

namespace velmora::foodsdb {

namespace {

constexpr std::array<NutrientId, 5> OmegaThreeParts{621, 629, 631, 851, 852};
constexpr std::array<NutrientId, 5> OmegaSixParts{672, 675, 685, 853, 855};

constexpr std::array<SumNutrient, 2> Sums{{
    {OmegaThreeSumNumber, "Omega-3", OmegaThreeParts},
    {OmegaSixSumNumber, "Omega-6", OmegaSixParts},
}};

// Energy and macronutrients, minerals, vitamins, lipids, amino acids. The 78 values of a food
// follow this order, so the nutrients people look for most come first within each kind.
constexpr KnownNutrient Known[] = {
    {208, "Energy"},
    {203, "Protein"},
    {204, "Total fat"},
    {205, "Carbohydrate"},
    {291, "Dietary fibre"},
    {269, "Sugars"},
    {209, "Starch"},
    {221, "Alcohol"},
    {262, "Caffeine"},
    {255, "Water"},
    {207, "Ash"},

    {301, "Calcium"},
    {312, "Copper"},
    {313, "Fluoride"},
    {303, "Iron"},
    {304, "Magnesium"},
    {315, "Manganese"},
    {305, "Phosphorus"},
    {306, "Potassium"},
    {317, "Selenium"},
    {307, "Sodium"},
    {309, "Zinc"},

    {318, "Vitamin A"},
    {320, "Vitamin A, RAE"},
    {319, "Retinol"},
    {322, "Alpha-carotene"},
    {321, "Beta-carotene"},
    {334, "Beta-cryptoxanthin"},
    {337, "Lycopene"},
    {338, "Lutein + zeaxanthin"},
    {417, "Folate"},
    {404, "Thiamin"},
    {405, "Riboflavin"},
    {406, "Niacin"},
    {410, "Pantothenic acid"},
    {415, "Vitamin B6"},
    {418, "Vitamin B12"},
    {401, "Vitamin C"},
    {324, "Vitamin D"},
    {323, "Vitamin E"},
    {341, "Beta-tocopherol"},
    {343, "Delta-tocopherol"},
    {342, "Gamma-tocopherol"},
    {430, "Vitamin K"},
    {421, "Choline"},

    {606, "Saturated fat"},
    {645, "Monounsaturated fat"},
    {646, "Polyunsaturated fat"},
    {OmegaThreeSumNumber, "Omega-3 fatty acids"},
    {OmegaSixSumNumber, "Omega-6 fatty acids"},
    {605, "Trans fat"},
    {601, "Cholesterol"},
    {636, "Phytosterols"},

    {501, "Tryptophan"},
    {502, "Threonine"},
    {503, "Isoleucine"},
    {504, "Leucine"},
    {505, "Lysine"},
    {506, "Methionine"},
    {507, "Cystine"},
    {508, "Phenylalanine"},
    {509, "Tyrosine"},
    {510, "Valine"},
    {511, "Arginine"},
    {512, "Histidine"},
    {513, "Alanine"},
    {514, "Aspartic acid"},
    {515, "Glutamic acid"},
    {516, "Glycine"},
    {517, "Proline"},
    {518, "Serine"},
    {521, "Hydroxyproline"},
};

} // namespace

std::span<const SumNutrient> sumNutrients()
{
    return Sums;
}

std::optional<NutrientId> sumNumberForName(std::string_view name)
{
    for (const SumNutrient& s : Sums)
        if (s.name == name)
            return s.number;
    return std::nullopt;
}

NutrientKind kindOf(NutrientId n)
{
    if (n >= 300 && n < 318)
        return NutrientKind::Mineral;
    if ((n >= 318 && n < 350) || (n >= 400 && n < 500) || n == 573 || n == 578)
        return NutrientKind::Vitamin;
    if (n >= 501 && n < 530)
        return NutrientKind::AminoAcid;
    if ((n >= 600 && n < 700) || (n >= 850 && n < 900) || n >= OmegaThreeSumNumber)
        return NutrientKind::Lipid;
    if (n >= 200 && n < 300)
        return NutrientKind::General;
    return NutrientKind::Other;
}

std::span<const KnownNutrient> knownNutrients()
{
    return Known;
}

int knownRank(NutrientId number)
{
    for (std::size_t i = 0; i < std::size(Known); ++i)
        if (Known[i].number == number)
            return static_cast<int>(i);
    return -1;
}

} // namespace velmora::foodsdb
