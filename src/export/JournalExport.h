#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/DateText.h"
#include "model/Result.h"

namespace velmora::model {
class Store;
}

namespace velmora::exchange {

inline constexpr const char* ServingsFileName = "servings.csv";
inline constexpr const char* DailyFileName = "daily.csv";
inline constexpr const char* HealthFileName = "health.csv";
inline constexpr const char* VariablesFileName = "variables.csv";
inline constexpr const char* WorkoutsFileName = "workouts.csv";
inline constexpr const char* NotesFileName = "notes.csv";
inline constexpr const char* JsonFileName = "journal.json";

// What to export: the days from..to (local calendar dates, both included; an open end takes
// every day on that side) as the six CSV files, the JSON document, or both.
struct ExportOptions
{
    std::optional<model::CalendarDate> from;
    std::optional<model::CalendarDate> to;
    bool csv = true;
    bool json = false;

    bool includes(const model::CalendarDate& d) const
    {
        return (!from || !(d < *from)) && (!to || !(*to < d));
    }
};

// Told how far an export has come: done of total steps (one per day, then one per file written).
// Returning false cancels the export; nothing is written then. Called at most about a hundred
// times per export, so a dialog may repaint its bar each time.
using ExportProgress = std::function<bool(std::size_t done, std::size_t total)>;

// One finished file: its name inside the export folder and its UTF-8 content.
struct ExportFile
{
    std::string name;
    std::string content;
};

// What an export held.
struct ExportSummary
{
    std::vector<std::string> files; // names, in the order written
    std::size_t days = 0;           // journal days in the range that hold anything
    std::size_t servings = 0;       // rows of servings.csv
    std::size_t healthEntries = 0;  // rows of health.csv
    std::size_t sets = 0;           // workout sets
    bool cancelled = false;         // the progress callback said stop; nothing was written
};

// Builds the files of an export of the store's current user's journal in memory. Days are taken
// in date order (days of the same date in journal order); every nutrient value is the core's
// entry value and every day total its group value, as the pages show them.
class JournalExport
{
public:
    JournalExport(const model::Store& store, ExportOptions options);

    // The files, CSV files first; nothing when the progress callback cancelled. progress counts
    // the days only here (total = days in the range).
    std::optional<std::vector<ExportFile>> build(const ExportProgress& progress = {});
    const ExportSummary& summary() const { return m_summary; }

    // How many days of the journal lie in the range (the progress total of build()).
    std::size_t dayCount() const { return m_days.size(); }

private:
    const model::Store& m_store;
    ExportOptions m_options;
    std::vector<std::size_t> m_days; // positions in the journal, in date order
    ExportSummary m_summary;
};

// Exports into folder (created when missing): builds every file in memory, writes them all beside
// their targets, and only when all of them were written replaces the folder's files of the same
// names, each by one rename. Other files in the folder are left alone. Fails with CannotWrite
// (and the operating system's text) when the folder cannot be made or a file cannot be written;
// the folder's files are then unchanged. A cancelled export writes nothing and reports
// summary.cancelled.
model::Result<ExportSummary> exportJournal(const model::Store& store,
                                           const std::filesystem::path& folder,
                                           const ExportOptions& options,
                                           const ExportProgress& progress = {});

} // namespace velmora::exchange
