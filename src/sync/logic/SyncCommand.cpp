#include "sync/logic/SyncCommand.h"

#include <charconv>
#include <ostream>

#include "model/DataFolder.h"
#include "model/DataLocations.h"
#include "model/FolderLock.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "sync/logic/SyncOperation.h"

namespace velmora::sync {

const char* const SyncCommandHelp =
    "Usage: velmora-cli sync tandry|korvel import|export --data-dir DIR [--user NAME]\n"
    "                        --handheld-user INDEX [--yes]\n"
    "\n"
    "Replaces the data of one side with the other's: export writes the desktop user's data onto\n"
    "the handheld's files in DIR/TandryFiles, import replaces the desktop user's data with the\n"
    "handheld's. INDEX is the handheld user's place in the handheld's user list (from 0); NAME is\n"
    "the desktop user (the current one by default). Without --yes the question is printed and\n"
    "nothing is changed. An import first keeps the current data in a dated folder in DIR.\n"
    "\n"
    "Exit status: 0 done, 1 not confirmed or failed, 2 wrong arguments, 3 handheld version not\n"
    "recognised.\n";

namespace {

struct Arguments
{
    Handheld handheld = Handheld::Tandry;
    SyncDirection direction = SyncDirection::Import;
    std::string dataDir;
    std::string user;
    bool hasUser = false;
    std::size_t handheldUser = 0;
    bool hasHandheldUser = false;
    bool yes = false;
};

bool parse(const std::vector<std::string>& args, Arguments& a)
{
    if (args.size() < 2)
        return false;
    if (args[0] == "tandry" || args[0] == "korvel")
        a.handheld = args[0] == "tandry" ? Handheld::Tandry : Handheld::Korvel;
    else
        return false;
    if (args[1] == "import" || args[1] == "export")
        a.direction = args[1] == "export" ? SyncDirection::Export : SyncDirection::Import;
    else
        return false;
    for (std::size_t i = 2; i < args.size(); ++i) {
        const std::string& opt = args[i];
        const bool hasValue = i + 1 < args.size();
        if (opt == "--yes") {
            a.yes = true;
        } else if (opt == "--data-dir" && hasValue) {
            a.dataDir = args[++i];
        } else if (opt == "--user" && hasValue) {
            a.user = args[++i];
            a.hasUser = true;
        } else if (opt == "--handheld-user" && hasValue) {
            const std::string& v = args[++i];
            const auto [end, ec] = std::from_chars(v.data(), v.data() + v.size(), a.handheldUser);
            if (ec != std::errc() || end != v.data() + v.size())
                return false;
            a.hasHandheldUser = true;
        } else {
            return false;
        }
    }
    return !a.dataDir.empty() && a.hasHandheldUser;
}

} // namespace

int runSyncCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                   model::TimeT now, const std::filesystem::path& programDir)
{
    Arguments a;
    if (!parse(args, a)) {
        err << SyncCommandHelp;
        return 2;
    }
    const std::filesystem::path dir = model::pathFromUtf8(a.dataDir);
    model::DataSearch search;
    search.dataDirOption = dir;
    search.programDir = programDir.empty() ? dir : programDir;
    search.perUserDir = model::defaultPerUserDataDir();
    search.installedDirs = model::defaultInstalledDataDirs();
    const model::DataLocations where = model::findDataLocations(search);
    model::FolderLock lock;
    if (const auto taken = lock.acquire(where.dataDir);
        taken.outcome == model::FolderLock::Outcome::HeldByOther) {
        err << "The data folder is in use by Velmora ("
            << model::FolderLock::holderText(taken.holder) << "); nothing was changed\n";
        return 1;
    }
    model::Store store;
    store.setPaths(where.foodsToLoad(), where.dataDir);
    const model::Store::LoadReport report = store.load();
    if (report.foodsMissing || !store.loaded()) {
        err << store.foodsPath().string() << ": the file cannot be read; nothing was changed\n";
        return 1;
    }
    if (!report.errors.empty()) {
        // Never synchronise data that was only partly read.
        err << report.errors.front().message() << "; nothing was synchronised\n";
        return 1;
    }
    const std::size_t loggedIn = store.shared.currentUser;
    if (a.hasUser) {
        std::size_t k = 0;
        while (k < store.shared.userNames.size() && store.shared.userNames[k] != a.user)
            ++k;
        if (k == store.shared.userNames.size()) {
            err << "There is no desktop user named \"" << a.user << "\".\n";
            return 1;
        }
        if (k != loggedIn) {
            store.shared.currentUser = static_cast<std::uint8_t>(k);
            model::FileError error;
            if (!store.loadCurrentUser(&error) && error.code != model::FileErrorCode::NotFound) {
                err << error.message() << "; nothing was synchronised\n";
                return 1;
            }
        }
    }
    const auto userFile = store.userFilePath(store.shared.currentUser);
    if (!userFile) {
        err << "The desktop user has no file in the data folder; nothing was synchronised\n";
        return 1;
    }

    SyncRequest request;
    request.handheld = a.handheld;
    request.direction = a.direction;
    request.dataDir = dir;
    request.userFile = *userFile;
    request.handheldUser = a.handheldUser;
    request.now = now;
    SyncOperation op =
        SyncOperation::prepare(request, store.shared, store.journal, store.foods.catalogue());
    if (op.refused()) {
        err << op.refusalText() << "\n";
        return op.refusal() == SyncOperation::Refusal::Version ? 3 : 1;
    }
    out << "Desktop user: " << store.currentUserName() << "\n";
    out << "Handheld user: " << op.summary().handheldUser << "\n";
    for (const std::string& line : op.changeLines())
        out << "  " << line << "\n";
    out << op.question() << "\n";
    if (!a.yes) {
        out << "Nothing was changed: run again with --yes to go ahead.\n";
        return 1;
    }
    if (model::Status s = op.apply(store.shared, store.journal); !s) {
        err << s.error().message() << "\n";
        return 1;
    }
    if (a.direction == SyncDirection::Import) {
        // Normalised as a save of the shared file would, then the user's file first while the
        // synchronised user is current; the login stays as it was.
        store.normalise();
        if (model::Status s = store.saveCurrentUser(); !s) {
            err << s.error().message() << "\n";
            return 1;
        }
        store.shared.currentUser = static_cast<std::uint8_t>(loggedIn);
        if (model::Status s = store.saveShared(); !s) {
            err << s.error().message() << "\n";
            return 1;
        }
        for (const model::KeptVersion& kept : store.files().takeKeptVersions())
            err << model::keptVersionText(kept) << "\n";
    }
    out << "Done.\n";
    return 0;
}

} // namespace velmora::sync
