#include "export/JournalExport.h"

#include <algorithm>
#include <system_error>

#include "export/CsvExport.h"
#include "export/ExportContext.h"
#include "export/JsonExport.h"
#include "model/SafeFile.h"
#include "model/Store.h"

namespace velmora::exchange {

namespace fs = std::filesystem;

namespace {

// Calls the progress callback when the share done has grown by a percent, and at the end.
class ProgressTicker
{
public:
    ProgressTicker(const ExportProgress& progress, std::size_t total)
        : m_progress(progress), m_total(total)
    {
    }

    // False when the callback asked to stop.
    bool step(std::size_t done)
    {
        if (!m_progress)
            return true;
        const std::size_t percent = m_total == 0 ? 100 : done * 100 / m_total;
        if (percent == m_lastPercent && done != m_total)
            return true;
        m_lastPercent = percent;
        return m_progress(done, m_total);
    }

private:
    const ExportProgress& m_progress;
    std::size_t m_total;
    std::size_t m_lastPercent = static_cast<std::size_t>(-1);
};

model::FileError writeError(const fs::path& path, const std::string& detail)
{
    return model::FileError{model::FileErrorCode::CannotWrite, path.string(), 0, detail};
}

// The name under which a file waits beside its target until every file of the export is written.
fs::path stagedPath(const fs::path& folder, const std::string& name)
{
    return folder / ("." + name + ".export-new");
}

void removeStaged(const fs::path& folder, const std::vector<ExportFile>& files, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        std::error_code ec;
        fs::remove(stagedPath(folder, files[i].name), ec);
    }
}

} // namespace

JournalExport::JournalExport(const model::Store& store, ExportOptions options)
    : m_store(store), m_options(std::move(options))
{
    const auto& days = store.journal.days;
    std::vector<std::pair<model::CalendarDate, std::size_t>> dated;
    for (std::size_t i = 0; i < days.size(); ++i) {
        const model::CalendarDate d = model::CalendarDate::fromTime(days[i].date);
        if (m_options.includes(d) && !days[i].isEmpty())
            dated.emplace_back(d, i);
    }
    std::stable_sort(dated.begin(), dated.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    m_days.reserve(dated.size());
    for (const auto& [date, index] : dated)
        m_days.push_back(index);
}

std::optional<std::vector<ExportFile>> JournalExport::build(const ExportProgress& progress)
{
    m_summary = ExportSummary{};
    const ExportContext context(m_store);
    std::optional<CsvExport> csv;
    std::optional<JsonExport> json;
    if (m_options.csv)
        csv.emplace(context);
    if (m_options.json)
        json.emplace(context, m_options);

    std::size_t entries = 0;
    for (std::size_t k : m_days)
        for (const model::Meal& m : m_store.journal.days[k].meals)
            entries += m.entries.size();
    if (csv)
        csv->reserve(m_days.size(), entries);
    if (json)
        json->reserve(m_days.size(), entries);

    ProgressTicker ticker(progress, m_days.size());
    if (!ticker.step(0)) {
        m_summary.cancelled = true;
        return std::nullopt;
    }
    DayView view;
    for (std::size_t k = 0; k < m_days.size(); ++k) {
        view.compute(context, m_store.journal.days[m_days[k]]);
        if (csv)
            csv->addDay(view);
        if (json)
            json->addDay(view);
        if (!ticker.step(k + 1)) {
            m_summary.cancelled = true;
            return std::nullopt;
        }
    }

    std::vector<ExportFile> files;
    if (csv) {
        m_summary.servings = csv->servingRows();
        m_summary.healthEntries = csv->healthRows();
        m_summary.sets = csv->setRows();
        files = csv->finish();
    }
    if (json)
        files.push_back(json->finish());
    m_summary.days = m_days.size();
    for (const ExportFile& f : files)
        m_summary.files.push_back(f.name);
    return files;
}

model::Result<ExportSummary> exportJournal(const model::Store& store, const fs::path& folder,
                                           const ExportOptions& options,
                                           const ExportProgress& progress)
{
    JournalExport exporter(store, options);
    const std::size_t fileCount = (options.csv ? 6u : 0u) + (options.json ? 1u : 0u);
    const std::size_t total = exporter.dayCount() + fileCount;
    // The build reports its days against the whole export's steps.
    const ExportProgress dayProgress = [&](std::size_t done, std::size_t) {
        return !progress || progress(done, total);
    };
    auto files = exporter.build(progress ? dayProgress : ExportProgress{});
    if (!files) {
        ExportSummary summary = exporter.summary();
        summary.cancelled = true;
        return summary;
    }

    std::error_code ec;
    fs::create_directories(folder, ec);
    if (ec || !fs::is_directory(folder, ec))
        return writeError(folder, ec ? ec.message() : "not a folder");

    // Every file is first written completely beside its target; the old files stay untouched
    // until all of them are on the disk.
    for (std::size_t i = 0; i < files->size(); ++i) {
        const ExportFile& f = (*files)[i];
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(f.content.data());
        const model::Status written = model::writeFileAtomically(
            stagedPath(folder, f.name), std::span<const std::uint8_t>(bytes, f.content.size()));
        if (!written) {
            removeStaged(folder, *files, i);
            return written.error();
        }
        if (progress && !progress(exporter.dayCount() + i + 1, total)) {
            removeStaged(folder, *files, i + 1);
            ExportSummary summary = exporter.summary();
            summary.cancelled = true;
            return summary;
        }
    }
    for (std::size_t i = 0; i < files->size(); ++i) {
        const ExportFile& f = (*files)[i];
        fs::rename(stagedPath(folder, f.name), folder / f.name, ec);
        if (ec) {
            removeStaged(folder, *files, files->size());
            return writeError(folder / f.name, ec.message());
        }
    }
    return exporter.summary();
}

} // namespace velmora::exchange
