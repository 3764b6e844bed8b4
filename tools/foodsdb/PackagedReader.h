#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "SourceData.h"
#include "model/Result.h"

namespace velmora::foodsdb {

// Called while foods are read: how many of how many are done.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

// The nutrient definitions of the packaged data ("nutrients.xml"): per nutrient its name as the
// food files use it, its unit, its USDA number (a sum of several numbers gets one of the builder's
// sum numbers, a nutrient without a number gets 0) and its reference intakes.
struct NutrientDefinitions
{
    struct Entry
    {
        std::string name; // UTF-8, as the food files name it
        NutrientId number = 0;
        std::string unit; // Windows-1252
        bool hasIntakes = false;
        SourceIntake intakes;
    };
    std::vector<Entry> entries;

    const Entry* find(std::string_view name) const;
};

// Whether a reference intake applies to life-stage group `group` (0..21: infants 0-0.5 and 0.5-1,
// children 1-3 and 4-8, males 9-13, 14-18, 19-30, 31-50, 51-70, over 70, females likewise,
// pregnancy up to 18, 19-30, 31-50, lactation likewise). The intake gives an age range in years
// (maxAge absent: no upper bound), a gender ("all", "male", "female") and a status ("" for none,
// "pregnant", "lactating"). Infants and children take only intakes for all genders.
bool coversLifeStage(int group, double minAge, std::optional<double> maxAge,
                     std::string_view gender, std::string_view status);

// Parses a nutrients.xml document. fileName names it in errors.
model::Result<NutrientDefinitions> parseNutrientDefinitions(std::string_view xml,
                                                            const std::string& fileName);
// Reads nutrients.xml out of the program archive that carries it.
model::Result<NutrientDefinitions> readNutrientDefinitions(const std::filesystem::path& jar);

// Parses one food file: <food uid name><measure amount name grams/><nutrient amount name/></food>.
model::Result<SourceFood> parseFoodXml(std::string_view xml, const NutrientDefinitions& defs,
                                       const std::string& fileName);

// Reads every food file of the packaged SR archive (entries named NNNNN.xml) and the nutrient
// definitions into one SourceData: nutrients in the definitions' order (only those some food
// lists), foods in the archive's order, no group names, the intake table of the definitions.
model::Result<SourceData> readPackagedData(const std::filesystem::path& foodsJar,
                                           const std::filesystem::path& nutrientsJar,
                                           const Progress& progress = {});

} // namespace velmora::foodsdb
