// velmora-cli resave [--data-dir DIR] [--foods FILE]
#include "Command.h"

#include <filesystem>

#include "model/DataLocations.h"
#include "model/FolderLock.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::cli {

namespace fs = std::filesystem;
using namespace velmora::model;

std::string resaveHelp()
{
    return "Usage: velmora-cli resave [--data-dir DIR] [--foods FILE]\n"
           "\n"
           "Does what the program does at start-up and shut-down: loads foods.db, velmora.db (or\n"
           "creates the example user when it is missing) and the current user's file, then\n"
           "writes velmora.db and the current user's file, normalisation included.\n"
           "The data folder and foods.db are found as the program finds them: DIR defaults to the\n"
           "folder that holds velmora-cli (or the per-user data folder when that cannot be\n"
           "written); foods.db is looked for in the data folder, beside velmora-cli, then in the\n"
           "installed data folders, unless FILE names it. Without foods.db nothing is loaded and\n"
           "nothing is written.\n"
           "A damaged file is moved aside as FILE.damaged-DATE; every record read completely is\n"
           "saved (\"9 of 10 days kept\"), and its last good backup is kept as FILE.backup-DATE,\n"
           "where no save replaces it. The exit code is then 1.\n";
}

int resaveCommand(const std::vector<std::string>& args, const char* argv0)
{
    DataSearch search;
    for (std::size_t i = 0; i < args.size(); i += 2) {
        if (i + 1 >= args.size())
            return usage(resaveHelp());
        if (args[i] == "--data-dir")
            search.dataDirOption = pathFromUtf8(args[i + 1]);
        else if (args[i] == "--foods")
            search.foodsOption = pathFromUtf8(args[i + 1]);
        else
            return usage(resaveHelp());
    }
    search.programDir = programFolder(argv0);
    search.perUserDir = defaultPerUserDataDir();
    search.installedDirs = defaultInstalledDataDirs();
    const DataLocations where = findDataLocations(search);

    FolderLock lock;
    if (int status = takeDataFolder(where.dataDir, lock); status != 0)
        return status;
    Store store;
    store.setPaths(where.foodsToLoad(), where.dataDir);
    const Store::LoadReport report = store.load();
    if (report.foodsMissing)
        return fail(store.foodsPath().string() +
                    ": the file does not exist; nothing was loaded or saved");
    // A damaged file has been moved aside by the load and what could be read completely is kept:
    // that is saved so the folder is whole again, and the damage is reported with a failing exit.
    for (const Store::DamagedFile& d : report.damaged) {
        std::string line = d.error.message();
        if (!d.kept.empty() && !d.movedTo.empty())
            line += "; " + d.kept;
        line += d.movedTo.empty() ? "; it could not be moved aside and is left as it is"
                                  : "; it was moved to " + d.movedTo.string();
        if (!d.backup.empty())
            line += "; its last backup reads completely and is kept as " + d.backup.string();
        fail(line);
    }
    int status = report.errors.empty() ? 0 : 1;
    if (report.damaged.empty() && !report.errors.empty())
        fail(report.errors.front().message());
    if (!store.loaded())
        return 1;
    if (Status shared = store.saveShared(); !shared)
        status = fail(shared.error().message());
    if (Status user = store.saveCurrentUser(); !user)
        status = fail(user.error().message());
    reportKeptVersions(store);
    return status;
}

} // namespace velmora::cli
