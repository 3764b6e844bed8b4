#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/Nutrients.h"
#include "model/Result.h"
#include "model/UserDatabase.h"
#include "sync/logic/KorvelStore.h"
#include "sync/logic/TandryStore.h"

namespace velmora::sync {

enum class Handheld
{
    Tandry, // the diet handheld
    Korvel  // the workout handheld
};

enum class SyncDirection
{
    Import, // handheld onto the desktop
    Export  // desktop onto the handheld
};

// The direction a press of "Sync" runs: export only when the export choice is checked.
inline SyncDirection chosenDirection(bool exportChecked)
{
    return exportChecked ? SyncDirection::Export : SyncDirection::Import;
}

// The question that guards a direction (messages 9011 to 9014).
std::string syncQuestionText(Handheld handheld, SyncDirection direction);
// Message 10010, shown when the handheld's files have a version this program does not know.
std::string handheldVersionText();

struct SyncRequest
{
    Handheld handheld = Handheld::Tandry;
    SyncDirection direction = SyncDirection::Import;
    std::filesystem::path dataDir;  // holds "velmora.db", the users' files and "TandryFiles"
    std::filesystem::path userFile; // the desktop user's file; its name is kept in the copy
    std::size_t handheldUser = 0;   // index into the handheld's user names
    model::TimeT now = 0;           // names the dated copy an import keeps
};

// Sizes of a list before and after a sync, on the side that receives.
struct ListChange
{
    std::size_t before = 0;
    std::size_t after = 0;
};

struct SyncSummary
{
    std::string handheldUser; // the handheld user's name
    ListChange customFoods;   // diet handheld only
    ListChange fields;
    ListChange exercises;
    ListChange routines;
    ListChange variables;
    ListChange days;
    bool goalsChanged = false;
};

// One sync, prepared in full before anything changes: prepare() reads the handheld's files and
// computes the receiving side's new records; apply() makes the change once confirmed. The
// desktop records are never touched by prepare(), and a refused sync changes no file.
class SyncOperation
{
public:
    enum class Refusal
    {
        None,
        Version, // the handheld's shared file has another version (message 10010)
        File,    // a transfer file is missing, damaged or cannot be used (see fileError())
        Dates,   // days whose times the receiving side cannot store (see refusedDays())
        NoUsers, // an export to a handheld that has no users
    };

    // Reads and converts; never changes a file or the desktop records. An import needs the
    // handheld's shared file at the expected version (a missing one passes), and the chosen
    // user's file readable: a missing or damaged one refuses the import. An export tolerates a
    // missing user file (a fresh profile is written) but refuses a damaged one, so that its
    // settings are not lost unseen; it also refuses days after 2038-01-19 rather than wrapping
    // their times.
    static SyncOperation prepare(const SyncRequest& request, const model::SharedData& shared,
                                 const model::UserJournal& journal,
                                 const model::NutrientCatalogue& catalogue);

    bool refused() const { return m_refusal != Refusal::None; }
    Refusal refusal() const { return m_refusal; }
    std::uint32_t foundVersion() const { return m_foundVersion; }
    const model::FileError& fileError() const { return m_fileError; }
    const std::vector<model::TimeT>& refusedDays() const { return m_refusedDays; }
    // Why the sync was refused, in one text for a message box or a terminal.
    std::string refusalText() const;

    const SyncRequest& request() const { return m_request; }
    const SyncSummary& summary() const { return m_summary; }
    // The lines of the summary, e.g. "Journal days: 120 -> 95".
    std::vector<std::string> changeLines() const;
    // The question to ask before apply(); for an import it says where the copy of the current
    // data goes.
    std::string question() const;
    // Where an import keeps the current data before replacing it: a folder in the data folder
    // named after the time of the request.
    std::filesystem::path copyFolder() const;

    // Runs the prepared sync once. An import first writes "velmora.db" and the user's file, as
    // the records are now, into copyFolder(); when that fails nothing is replaced. It then
    // replaces shared and journal in memory (the caller saves them). An export writes the
    // handheld user's file, then the shared file. Fails when refused or already applied.
    model::Status apply(model::SharedData& shared, model::UserJournal& journal);
    bool applied() const { return m_applied; }

    // The records an import would install (for previews and tests).
    const model::SharedData& importedShared() const { return m_shared; }
    const model::UserJournal& importedJournal() const { return m_journal; }
    // The handheld store an export would write (for previews and tests).
    const std::optional<TandryStore>& tandryExport() const { return m_tandry; }
    const std::optional<KorvelStore>& korvelExport() const { return m_korvel; }

private:
    explicit SyncOperation(const SyncRequest& request) : m_request(request) {}
    void refuse(Refusal why) { m_refusal = why; }
    void refuse(const model::FileError& error)
    {
        m_refusal = Refusal::File;
        m_fileError = error;
    }
    void prepareImport(const model::SharedData& shared, const model::UserJournal& journal,
                       const model::NutrientCatalogue& catalogue);
    void prepareExport(const model::SharedData& shared, const model::UserJournal& journal,
                       const model::NutrientCatalogue& catalogue);
    template <class Store> bool readForImport(Store& store);
    template <class Store> bool readForExport(Store& store);

    SyncRequest m_request;
    Refusal m_refusal = Refusal::None;
    std::uint32_t m_foundVersion = 0;
    model::FileError m_fileError;
    std::vector<model::TimeT> m_refusedDays;
    SyncSummary m_summary;
    bool m_applied = false;

    model::SharedData m_shared;
    model::UserJournal m_journal;
    std::optional<TandryStore> m_tandry;
    std::optional<KorvelStore> m_korvel;
};

} // namespace velmora::sync
