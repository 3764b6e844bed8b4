#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/FoodItem.h"
#include "model/Nutrients.h"
#include "model/Result.h"

namespace velmora::model {

class ArchiveReader;

// The read-only reference data of "foods.db": catalogue, food groups, recommended-intake table and
// the database foods with a number-keyed lookup. Custom foods live in the user database.
class FoodDatabase
{
public:
    // Parses a whole "foods.db" image. The file has no header; four collections follow each other:
    // foods, catalogue entries, food groups, intake records. Counts of 0 or less read nothing.
    static Result<FoodDatabase> parse(std::span<const std::uint8_t> bytes,
                                      const std::string& fileName);
    static Result<FoodDatabase> load(const std::filesystem::path& path);
    // Reads what can be read completely from a damaged image: each collection whole or not at all.
    static Salvaged<FoodDatabase> salvage(std::span<const std::uint8_t> bytes,
                                          const std::string& fileName);
    // Serialises in the same layout (only the catalogue's file entries are written).
    std::vector<std::uint8_t> serialize() const;

    NutrientCatalogue& catalogue() { return m_catalogue; }
    const NutrientCatalogue& catalogue() const { return m_catalogue; }
    const std::vector<FoodItem>& foods() const { return m_foods; }
    const std::vector<FoodGroup>& groups() const { return m_groups; }
    const std::vector<IntakeRecord>& intakes() const { return m_intakes; }

    // Builders (the food-database builder and tests fill a database through these). Adding a food
    // enters it in the number map; a later food with the same number replaces the earlier one in
    // the map while both stay in the list.
    void addFood(FoodItem food);
    void addGroup(FoodGroup group) { m_groups.push_back(std::move(group)); }
    void addIntake(IntakeRecord record) { m_intakes.push_back(std::move(record)); }
    void setCatalogue(std::vector<NutrientDef> entries)
    {
        m_catalogue.setFileEntries(std::move(entries));
    }

    // A database food by number through the map; numbers of 70000 and up are never found here.
    const FoodItem* findDatabaseFood(std::int32_t number) const;
    // The intake record of a nutrient (first match), or nullptr.
    const IntakeRecord* findIntake(NutrientId n) const;
    bool empty() const { return m_foods.empty() && m_catalogue.fileCount() == 0; }

    // The data release the database was built from, e.g. "USDA SR24"; empty when unknown. It is
    // kept as the name of a food group numbered SourceGroupNumber, which no food uses, so the file
    // layout stays as it is; group pickers skip that group (see isSourceGroup).
    std::string sourceRelease() const;
    static constexpr std::int32_t SourceGroupNumber = -1;
    static bool isSourceGroup(const FoodGroup& g) { return g.number == SourceGroupNumber; }

private:
    static void readFrom(ArchiveReader& in, FoodDatabase& db);

    NutrientCatalogue m_catalogue;
    std::vector<FoodItem> m_foods;
    std::vector<FoodGroup> m_groups;
    std::vector<IntakeRecord> m_intakes;
    std::unordered_map<std::int32_t, std::size_t> m_byNumber;
};

// The amount column of the journal: the entry's grams in the food's household measures, e.g.
// "2 x large", "large", or "150.00g" when no measure fits. amount is in units of 100 g.
std::string servingText(const FoodItem& food, float amount);

// printf-style formatting into a std::string (the design's texts are printf formats).
std::string formatText(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;

} // namespace velmora::model
