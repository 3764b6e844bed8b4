#pragma once

#include "export/JsonWriter.h"

namespace velmora::exchange {

class ExportContext;
struct DayView;
struct ExportFile;
struct ExportOptions;

// The JSON document of an export: the same content as the CSV files, structured by day. Keys of
// values are the CSV files' column headers, so one description serves both.
class JsonExport
{
public:
    JsonExport(const ExportContext& context, const ExportOptions& options);

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
