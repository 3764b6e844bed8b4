#pragma once

#include "export/JsonWriter.h"

namespace velmora::exchange {

class ExportContext;
struct DayView;
struct ExportFile;
struct ExportOptions;

// The JSON document of an export: the same content as the CSV files, structured by day. Nutrient
// values are arrays in the order of the document's "nutrients" list (a ten-year journal would
// otherwise repeat every name millions of times); health values are keyed by the column headers
// of health.csv, so one description serves both.
class JsonExport
{
public:
    JsonExport(const ExportContext& context, const ExportOptions& options);

    // Room for a document of this many days and food entries.
    void reserve(std::size_t days, std::size_t entries);
    void addDay(const DayView& day);
    ExportFile finish();

private:
    void addMeals(const DayView& day);
    void addHealth(const DayView& day);
    void addWorkouts(const DayView& day);

    const ExportContext& m_context;
    JsonWriter m_json;
};

} // namespace velmora::exchange
