#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "export/CsvReader.h"
#include "model/Store.h"

namespace velmora::test {

// A store with a generated journal of the given number of days over 50 database foods and one
// custom food, with the definitions its workouts and variables refer to, and a few awkward
// records: a custom food entry, entries of foods that no longer exist, a note with a comma,
// quotes and a line break, a day with only a workout, a day with only notes.
model::Store exportStore(int days, bool metric = false);

// A file's text, and its CSV records as maps from header to field.
std::string readText(const std::filesystem::path& path);
struct CsvRows
{
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;

    // The column of a header; fails the test when there is none.
    std::size_t column(const std::string& name) const;
};
CsvRows readRows(const std::filesystem::path& path);

} // namespace velmora::test
