#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "SourceData.h"
#include "model/Result.h"

namespace velmora::foodsdb {

// Splits one line of a USDA SR ASCII file into its fields: '^' separates fields, a text field is
// enclosed in '~' (and may then hold '^'), numeric fields are bare and may be empty. The views
// point into `line`. Fails with a short description for a '~' that is never closed.
model::Result<std::vector<std::string_view>> splitSrLine(std::string_view line);

// Reads a USDA SR release in its ASCII form from one folder: FOOD_DES.txt (foods and their
// groups), FD_GROUP.txt (group names), NUTR_DEF.txt (nutrients), NUT_DATA.txt (values per 100 g)
// and WEIGHT.txt (household measures). Texts are taken as Windows-1252 bytes. The omega-3 and
// omega-6 sums are added from their parts where a food has any of them. Intakes stay empty.
// Errors name the file and line: NotFound for a missing file, BadValue for a damaged line.
model::Result<SourceData> readSrAscii(const std::filesystem::path& folder);

} // namespace velmora::foodsdb
