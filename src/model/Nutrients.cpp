#include "model/Nutrients.h"

#include <algorithm>

namespace velmora::model {

namespace {
struct ComputedName
{
    NutrientId number;
    const char* name;
};
constexpr ComputedName ComputedNames[nutrient::ComputedCount] = {
    {nutrient::PercentFat, "% Fat"},         {nutrient::PercentCarb, "% Carb"},
    {nutrient::PercentProtein, "% Protein"}, {nutrient::Points, "Points"},
    {nutrient::Amount, "Amount (g)"},        {nutrient::NetCarbs, "Carbs, Net (g)"}};
} // namespace

void NutrientCatalogue::setFileEntries(std::vector<NutrientDef> entries)
{
    m_entries = std::move(entries);
    m_fileCount = m_entries.size();
    m_hasComputed = false;
    rebuildIndex();
}

void NutrientCatalogue::appendComputed()
{
    if (m_hasComputed)
        return;
    for (const auto& c : ComputedNames)
        m_entries.push_back(NutrientDef{c.number, std::string(), c.name});
    m_hasComputed = true;
    rebuildIndex();
}

void NutrientCatalogue::rebuildIndex()
{
    m_firstIndex.clear();
    for (std::size_t i = 0; i < m_fileCount; ++i)
        m_firstIndex.emplace(m_entries[i].number, static_cast<int>(i)); // keeps the first
    m_sorted.resize(m_entries.size());
    for (std::size_t i = 0; i < m_sorted.size(); ++i)
        m_sorted[i] = i;
    // Byte-wise order as unsigned bytes; equal names keep catalogue order.
    std::stable_sort(m_sorted.begin(), m_sorted.end(), [this](std::size_t a, std::size_t b) {
        const auto& x = m_entries[a].name;
        const auto& y = m_entries[b].name;
        return std::lexicographical_compare(
            x.begin(), x.end(), y.begin(), y.end(), [](char p, char q) {
                return static_cast<unsigned char>(p) < static_cast<unsigned char>(q);
            });
    });
}

int NutrientCatalogue::indexOf(NutrientId n) const
{
    const auto it = m_firstIndex.find(n);
    return it == m_firstIndex.end() ? -1 : it->second;
}

const NutrientDef* NutrientCatalogue::find(NutrientId n) const
{
    const int i = indexOf(n);
    if (i >= 0)
        return &m_entries[static_cast<std::size_t>(i)];
    for (std::size_t k = m_fileCount; k < m_entries.size(); ++k)
        if (m_entries[k].number == n)
            return &m_entries[k];
    return nullptr;
}

std::string NutrientCatalogue::nameOf(NutrientId n) const
{
    const NutrientDef* d = find(n);
    return d ? d->name : std::string();
}

} // namespace velmora::model
