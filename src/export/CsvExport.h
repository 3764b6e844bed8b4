#pragma once

#include <string>
#include <vector>

#include "export/CsvWriter.h"

namespace velmora::exchange {

class ExportContext;
struct DayView;
struct ExportFile;

// The six CSV files of an export, built day by day in memory.
class CsvExport
{
public:
    explicit CsvExport(const ExportContext& context);

    // Room for the files of an export of this many days and food entries, so that building a
    // long journal does not copy its biggest file over and over.
    void reserve(std::size_t days, std::size_t entries);
    void addDay(const DayView& day);
    // The finished files: servings.csv, daily.csv, health.csv, variables.csv, workouts.csv,
    // notes.csv.
    std::vector<ExportFile> finish();

    std::size_t servingRows() const { return m_servingRows; }
    std::size_t healthRows() const { return m_healthRows; }
    std::size_t setRows() const { return m_setRows; }

private:
    void writeHeaders();
    void addServings(const DayView& day, const std::string& date);
    void addDaily(const DayView& day, const std::string& date);
    void addHealth(const DayView& day, const std::string& date);
    void addWorkouts(const DayView& day, const std::string& date);
    void addNotes(const DayView& day, const std::string& date);

    const ExportContext& m_context;
    CsvWriter m_servings, m_daily, m_health, m_variables, m_workouts, m_notes;
    std::size_t m_servingRows = 0, m_healthRows = 0, m_setRows = 0;
};

} // namespace velmora::exchange
