#include "sync/logic/SyncOperation.h"

#include <cstdio>
#include <ctime>

#include "model/DateText.h"
#include "model/SafeFile.h"
#include "sync/logic/JournalTransfer.h"
#include "sync/logic/KorvelConversion.h"
#include "sync/logic/TandryConversion.h"

namespace velmora::sync {

namespace {

std::string isoDate(model::TimeT t)
{
    const model::CalendarDate d = model::CalendarDate::fromTime(t);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", d.year, d.month, d.day);
    return text;
}

std::filesystem::path freeCopyFolder(const std::filesystem::path& dataDir, model::TimeT now)
{
    const std::time_t tt = static_cast<std::time_t>(now);
    std::tm f{};
#if defined(_WIN32)
    localtime_s(&f, &tt);
#else
    localtime_r(&tt, &f);
#endif
    char stamp[64];
    std::strftime(stamp, sizeof stamp, "Before sync %Y-%m-%d %H%M%S", &f);
    std::filesystem::path folder = dataDir / stamp;
    std::error_code ec;
    for (int n = 2; std::filesystem::exists(folder, ec); ++n)
        folder = dataDir / (std::string(stamp) + " (" + std::to_string(n) + ")");
    return folder;
}

ListChange change(std::size_t before, std::size_t after)
{
    return ListChange{before, after};
}

void summariseDefinitions(SyncSummary& s, const model::DefinitionLists& before,
                          const model::DefinitionLists& after)
{
    s.fields = change(before.fields.size(), after.fields.size());
    s.exercises = change(before.exercises.size(), after.exercises.size());
    s.routines = change(before.routines.size(), after.routines.size());
    s.variables = change(before.variables.size(), after.variables.size());
}

std::string handheldName(Handheld h)
{
    return h == Handheld::Tandry ? "Tandry" : "Korvel";
}

} // namespace

std::string syncQuestionText(Handheld handheld, SyncDirection direction)
{
    const bool exporting = direction == SyncDirection::Export;
    if (handheld == Handheld::Tandry) {
        return exporting ? "Are you sure you want to DELETE ALL your data in TANDRY and replace it "
                           "with what you have in Velmora?"
                         : "Are you sure you want to DELETE ALL your data in VELMORA and replace "
                           "it with what you have in Tandry?";
    }
    return exporting ? "Are you sure you want to DELETE ALL your data in KORVEL and replace it "
                       "with what you have in Velmora?"
                     : "Are you sure you want to DELETE ALL your data in VELMORA and replace it "
                       "with what you have in Korvel?";
}

std::string handheldVersionText()
{
    return "The software version on the PDA is not recognized by this software.  Update both the "
           "desktop and PDA software to the latest version and try again.  Run the new PDA "
           "version in order to convert any data files first.";
}

template <class Store> bool SyncOperation::readForImport(Store& store)
{
    auto version = store.readVersion();
    if (!version) {
        refuse(version.error());
        return false;
    }
    m_foundVersion = version.value();
    if (m_foundVersion != decltype(store.shared)::Version) {
        refuse(Refusal::Version);
        return false;
    }
    if (auto read = store.readShared(); !read) {
        refuse(read.error());
        return false;
    }
    const auto& names = store.shared.userNames;
    if (m_request.handheldUser < names.size())
        m_summary.handheldUser = names[m_request.handheldUser];
    if (auto read = store.readUser(m_request.handheldUser); !read) {
        refuse(read.error());
        return false;
    }
    return true;
}

template <class Store> bool SyncOperation::readForExport(Store& store)
{
    if (auto read = store.readShared(); !read) {
        refuse(read.error());
        return false;
    }
    const auto& names = store.shared.userNames;
    if (names.empty()) {
        refuse(Refusal::NoUsers);
        return false;
    }
    if (auto path = store.userPath(m_request.handheldUser); !path) {
        refuse(path.error());
        return false;
    }
    m_summary.handheldUser = names[m_request.handheldUser];
    if (auto read = store.readUser(m_request.handheldUser); !read) {
        // A user who never synchronised has no file yet: a fresh profile is written.
        if (read.error().code != model::FileErrorCode::NotFound) {
            refuse(read.error());
            return false;
        }
        store.shared.currentUser = static_cast<std::uint8_t>(m_request.handheldUser);
    }
    return true;
}

SyncOperation SyncOperation::prepare(const SyncRequest& request, const model::SharedData& shared,
                                     const model::UserJournal& journal,
                                     const model::NutrientCatalogue& catalogue)
{
    SyncOperation op(request);
    if (request.direction == SyncDirection::Import)
        op.prepareImport(shared, journal, catalogue);
    else
        op.prepareExport(shared, journal, catalogue);
    return op;
}

void SyncOperation::prepareImport(const model::SharedData& shared,
                                  const model::UserJournal& journal,
                                  const model::NutrientCatalogue& catalogue)
{
    const std::filesystem::path folder = handheldFolder(m_request.dataDir);
    m_shared = shared;
    m_journal = journal;
    if (m_request.handheld == Handheld::Tandry) {
        TandryStore store(folder);
        if (!readForImport(store))
            return;
        importTandry(store.shared, store.user, catalogue, m_shared, m_journal);
    } else {
        KorvelStore store(folder);
        if (!readForImport(store))
            return;
        importKorvel(store.shared, store.user, m_shared, m_journal);
    }
    m_refusedDays = daysBeyondDesktopTimes(m_journal.days);
    if (!m_refusedDays.empty()) {
        refuse(Refusal::Dates);
        return;
    }
    m_summary.customFoods = change(shared.customFoods.size(), m_shared.customFoods.size());
    summariseDefinitions(m_summary, exportDefinitions(shared), exportDefinitions(m_shared));
    m_summary.days = change(journal.days.size(), m_journal.days.size());
    m_summary.goalsChanged = journal.user.goalValues != m_journal.user.goalValues;
}

void SyncOperation::prepareExport(const model::SharedData& shared,
                                  const model::UserJournal& journal,
                                  const model::NutrientCatalogue& catalogue)
{
    const std::filesystem::path folder = handheldFolder(m_request.dataDir);
    if (m_request.handheld == Handheld::Tandry) {
        TandryStore store(folder);
        if (!readForExport(store))
            return;
        const model::TandryShared before = store.shared;
        const std::size_t daysBefore = store.user.days.size();
        const auto goalsBefore = store.user.profile.goals;
        exportTandry(shared, journal, catalogue, store.shared, store.user);
        m_refusedDays = daysBeyondSignedTimes(journal.days);
        m_summary.customFoods = change(before.foods.size(), store.shared.foods.size());
        summariseDefinitions(m_summary, before.definitions, store.shared.definitions);
        m_summary.days = change(daysBefore, store.user.days.size());
        m_summary.goalsChanged = goalsBefore != store.user.profile.goals;
        m_tandry.emplace(std::move(store));
    } else {
        KorvelStore store(folder);
        if (!readForExport(store))
            return;
        const model::DefinitionLists before = store.shared.definitions;
        const std::size_t daysBefore = store.user.days.size();
        exportKorvel(shared, journal, store.shared, store.user);
        std::vector<model::JournalDay> carried;
        for (const model::JournalDay& d : journal.days)
            if (carriedToKorvel(d))
                carried.push_back(d);
        m_refusedDays = daysBeyondSignedTimes(carried);
        summariseDefinitions(m_summary, before, store.shared.definitions);
        m_summary.days = change(daysBefore, store.user.days.size());
        m_korvel.emplace(std::move(store));
    }
    if (!m_refusedDays.empty())
        refuse(Refusal::Dates);
}

std::string SyncOperation::refusalText() const
{
    switch (m_refusal) {
    case Refusal::None:
        return {};
    case Refusal::Version:
        return handheldVersionText();
    case Refusal::File:
        return m_fileError.message() + "\nNothing was synchronised.";
    case Refusal::NoUsers:
        return "The handheld has no users to receive the data.";
    case Refusal::Dates: {
        std::string text = m_request.direction == SyncDirection::Export
                               ? "These days lie after 2038-01-19, beyond the dates the handheld "
                                 "can store; nothing was synchronised:"
                               : "These days lie before 1970, beyond the dates the journal can "
                                 "store; nothing was synchronised:";
        for (model::TimeT t : m_refusedDays)
            text += " " + isoDate(t);
        return text;
    }
    }
    return {};
}

std::vector<std::string> SyncOperation::changeLines() const
{
    const auto line = [](const char* what, const ListChange& c) {
        return std::string(what) + ": " + std::to_string(c.before) + " -> " +
               std::to_string(c.after);
    };
    std::vector<std::string> lines;
    if (m_request.handheld == Handheld::Tandry)
        lines.push_back(line("Custom foods", m_summary.customFoods));
    lines.push_back(line("Exercise fields", m_summary.fields));
    lines.push_back(line("Exercises", m_summary.exercises));
    lines.push_back(line("Routines", m_summary.routines));
    lines.push_back(line("User variables", m_summary.variables));
    lines.push_back(line("Journal days", m_summary.days));
    if (m_request.handheld == Handheld::Tandry)
        lines.push_back(std::string("Nutrient goals: ") +
                        (m_summary.goalsChanged ? "changed" : "unchanged"));
    return lines;
}

std::filesystem::path SyncOperation::copyFolder() const
{
    return freeCopyFolder(m_request.dataDir, m_request.now);
}

std::string SyncOperation::question() const
{
    std::string text = syncQuestionText(m_request.handheld, m_request.direction);
    if (m_request.direction == SyncDirection::Import)
        text += "\n\nA copy of your current data is kept in the folder \"" +
                copyFolder().filename().string() + "\" in your data folder.";
    return text;
}

model::Status SyncOperation::apply(model::SharedData& shared, model::UserJournal& journal)
{
    if (refused() || m_applied) {
        return model::FileError{model::FileErrorCode::BadValue, handheldName(m_request.handheld), 0,
                                refused() ? refusalText() : "the sync has already run"};
    }
    m_applied = true;
    if (m_request.direction == SyncDirection::Export) {
        if (m_tandry) {
            if (auto s = m_tandry->writeUser(true); !s)
                return s;
            return m_tandry->writeShared(true);
        }
        if (auto s = m_korvel->writeUser(true); !s)
            return s;
        return m_korvel->writeShared(true);
    }
    if (m_request.userFile.filename().empty())
        return model::FileError{model::FileErrorCode::CannotWrite, m_request.userFile.string(), 0,
                                "no desktop user file to keep a copy of"};
    const std::filesystem::path folder = copyFolder();
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    if (ec)
        return model::FileError{model::FileErrorCode::CannotWrite, folder.string(), 0,
                                ec.message()};
    if (auto s = model::writeFileAtomically(folder / "velmora.db", shared.serialize()); !s)
        return s;
    if (auto s =
            model::writeFileAtomically(folder / m_request.userFile.filename(), journal.serialize());
        !s)
        return s;
    shared = std::move(m_shared);
    journal = std::move(m_journal);
    return model::Status::success();
}

} // namespace velmora::sync
