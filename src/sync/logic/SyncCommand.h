#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "model/Archive.h"

namespace velmora::sync {

// The console tool's "sync" command:
//   sync tandry|korvel import|export --data-dir DIR [--user NAME] --handheld-user INDEX [--yes]
extern const char* const SyncCommandHelp;

// Runs the command on the data folder's files (args without the word "sync"): loads the folder
// as the program does, prepares the sync for the desktop user (the current one unless --user
// names another) and the handheld user at INDEX, and prints what would change and the question.
// Without --yes nothing changes. With --yes an import keeps the dated copy, replaces the records
// and saves "velmora.db" and the user's file; an export writes the handheld's files. now names
// the dated copy (seconds since 1970).
// Exit codes: 0 done; 1 not confirmed, or a file could not be read or written; 2 wrong
// arguments; 3 the handheld's files have a version this program does not know (message 10010 on
// err).
// programDir (the folder of the running tool) is where "foods.db" is looked for after the data
// folder, as the program looks for it; empty: the data folder only.
int runSyncCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                   model::TimeT now, const std::filesystem::path& programDir = {});

} // namespace velmora::sync
