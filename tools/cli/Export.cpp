// velmora-cli export [--data-dir DIR] [--user NAME] [--from DATE] [--to DATE] --out FOLDER [--json]
#include "Command.h"

#include <iostream>

#include "export/JournalExport.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::cli {

std::string exportHelp()
{
    return "Usage: velmora-cli export [--data-dir DIR] [--foods FILE] [--user NAME]\n"
           "                          [--from YYYY-MM-DD] [--to YYYY-MM-DD] --out FOLDER [--json]\n"
           "\n"
           "Exports one user's journal (default: the current user of velmora.db) over a range of\n"
           "local dates, both included (default: everything), into FOLDER: servings.csv,\n"
           "daily.csv, health.csv, variables.csv, workouts.csv and notes.csv (UTF-8, a header\n"
           "row, RFC 4180 quoting, ISO dates); with --json also journal.json. The folder's\n"
           "files are replaced only when the whole export was written; the data folder is only\n"
           "read. docs/export-format.md describes every column.\n"
           "\n"
           "Exit status: 0 exported; 1 the export could not be written (the folder's files are as\n"
           "they were); 2 wrong arguments, an unknown user or an unreadable data folder.\n";
}

int exportCommand(const std::vector<std::string>& arguments, const char* argv0)
{
    std::vector<std::string> args = arguments;
    UserDataOptions where;
    if (!takeUserDataOptions(args, where))
        return usage(exportHelp());
    if (int status = checkDates(where); status != 0)
        return status;
    exchange::ExportOptions options;
    options.from = where.from;
    options.to = where.to;
    std::filesystem::path out;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--json") {
            options.json = true;
        } else if (args[i] == "--out" && i + 1 < args.size()) {
            out = model::pathFromUtf8(args[++i]);
        } else {
            return usage(exportHelp());
        }
    }
    if (out.empty())
        return usage(exportHelp());
    model::Store store;
    if (int status = loadUserStore(where, argv0, store); status != 0)
        return status;
    const auto result = exchange::exportJournal(store, out, options);
    if (!result)
        return fail(result.error().message());
    const exchange::ExportSummary& s = result.value();
    std::cout << "Exported " << s.days << " days (" << s.servings << " servings, "
              << s.healthEntries << " health entries, " << s.sets << " workout sets) into "
              << out.string() << ":";
    for (const std::string& f : s.files)
        std::cout << " " << f;
    std::cout << "\n";
    return 0;
}

} // namespace velmora::cli
