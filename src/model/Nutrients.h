#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmora::model {

// A nutrient number in USDA numbering. 100 to 105 and 1000 are computed on request.
using NutrientId = std::int32_t;

namespace nutrient {
inline constexpr NutrientId PercentFat = 100;
inline constexpr NutrientId PercentCarb = 101;
inline constexpr NutrientId PercentProtein = 102;
inline constexpr NutrientId Points = 103;
inline constexpr NutrientId Amount = 104;      // "Amount (g)"; serving weight of a custom food
inline constexpr NutrientId NetCarbs = 105;
inline constexpr NutrientId ProteinScore = 1000;

inline constexpr NutrientId Protein = 203;
inline constexpr NutrientId Fat = 204;
inline constexpr NutrientId Carbohydrate = 205;
inline constexpr NutrientId Energy = 208;
inline constexpr NutrientId Fibre = 291;

inline constexpr NutrientId FirstComputed = 100;
inline constexpr NutrientId LastComputed = 105;
inline constexpr int ComputedCount = 6;

inline bool isComputed(NutrientId n) { return (n >= FirstComputed && n <= LastComputed) || n == ProteinScore; }
} // namespace nutrient

// Every food holds exactly this many stored values, in catalogue order.
inline constexpr int StoredNutrientCount = 78;

// One catalogue entry.
struct NutrientDef
{
    NutrientId number = 0;
    std::string shortText; // kept as read; the data gives its meaning (the unit, for USDA data)
    std::string name;      // shown in lists, pickers and reports
};

// The nutrient catalogue: the file's entries in file order, then (once appendComputed() has run)
// the six computed entries 100..105, plus a copy ordered by name for pickers.
class NutrientCatalogue
{
public:
    // Replaces the entries with those read from "foods.db" (no computed ones).
    void setFileEntries(std::vector<NutrientDef> entries);

    // Appends 100..105 with the names "% Fat", "% Carb", "% Protein", "Points", "Amount (g)",
    // "Carbs, Net (g)" and rebuilds the sorted copy. Does nothing when they are already there.
    void appendComputed();
    bool hasComputed() const { return m_hasComputed; }

    // All entries, computed ones included once appended.
    const std::vector<NutrientDef>& entries() const { return m_entries; }
    // The entries read from the file; their position is the value index inside every food.
    std::size_t fileCount() const { return m_fileCount; }
    // Indices into entries(), ordered by name (byte-wise).
    const std::vector<std::size_t>& sortedByName() const { return m_sorted; }

    // Position of n among the file's entries by the rule "first match wins", or -1.
    int indexOf(NutrientId n) const;
    // The entry of n (file or computed entries), or nullptr.
    const NutrientDef* find(NutrientId n) const;
    // The name of n, or an empty text when the catalogue does not know it.
    std::string nameOf(NutrientId n) const;

private:
    void rebuildIndex();

    std::vector<NutrientDef> m_entries;
    std::size_t m_fileCount = 0;
    bool m_hasComputed = false;
    std::vector<std::size_t> m_sorted;
    std::unordered_map<NutrientId, int> m_firstIndex; // file entries only, first occurrence
};

} // namespace velmora::model
