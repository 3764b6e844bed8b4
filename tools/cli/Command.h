#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/DateText.h"

namespace velmora::model {
class FolderLock;
class Store;
}

namespace velmora::cli {

// One console command: its name, its help text and what it does. Each command lives in a source
// file of its own and is listed once in main.cpp.
struct Command
{
    const char* name;
    std::string (*help)();
    // The arguments after the command's name; argv0 is the program as it was started. Returns
    // the exit code: 0 done, 1 failed, 2 wrong arguments.
    int (*run)(const std::vector<std::string>& args, const char* argv0);
};

int rewriteCommand(const std::vector<std::string>& args, const char* argv0);
std::string rewriteHelp();
int dumpCommand(const std::vector<std::string>& args, const char* argv0);
std::string dumpHelp();
int resaveCommand(const std::vector<std::string>& args, const char* argv0);
std::string resaveHelp();

int reportCommand(const std::vector<std::string>& args, const char* argv0);
std::string reportHelp();
int exportCommand(const std::vector<std::string>& args, const char* argv0);
std::string exportHelp();
int importHealthCommand(const std::vector<std::string>& args, const char* argv0);
std::string importHealthHelp();
int syncCommand(const std::vector<std::string>& args, const char* argv0);
std::string syncHelp();

// Shared by the commands.
bool wantsHelp(const std::vector<std::string>& args);
int fail(const std::string& message);   // prints "velmora-cli: message"; returns 1
int usage(const std::string& help);     // prints the help on standard error; returns 2
int printHelp(const std::string& help); // prints the help on standard output; returns 0
// "foods (foods.db), shared (velmora.db), user (a user's journal file)".
std::string kindList();
// The folder that holds the running velmora-cli.
std::filesystem::path programFolder(const char* argv0);
// "YYYY-MM-DD" as a local calendar date; nothing for any other text or an impossible date.
std::optional<model::CalendarDate> parseIsoDate(const std::string& text);
// Takes the data folder for a command that writes: 0, or prints which program holds it and
// returns 1. A folder that cannot be locked (a read-only one, a file system without locks) is
// left to the checks of each save.
int takeDataFolder(const std::filesystem::path& dir, model::FolderLock& lock);
// Prints the other programs' versions that the store's saves kept beside the files.
void reportKeptVersions(model::Store& store);

// Where a command that works on one user's journal finds its data: --data-dir, --foods and --user
// (default: the current user of velmora.db), and the period --from/--to (local dates, both
// included).
struct UserDataOptions
{
    std::filesystem::path dataDir;
    std::filesystem::path foods;
    std::string user;
    std::optional<model::CalendarDate> from;
    std::optional<model::CalendarDate> to;
    std::string badDate;            // a --from or --to text that is no date, or a date the files
    bool badDateOutOfRange = false; // cannot hold (before 1970 or after 2106)
};
// Takes "--data-dir DIR", "--foods FILE", "--user NAME", "--from DATE" and "--to DATE" out of
// args into options; false when one of them has no value.
bool takeUserDataOptions(std::vector<std::string>& args, UserDataOptions& options);
// Loads the data folder as the program does and makes the named user current (in memory only).
// Returns 0, or prints one line on standard error and returns 2: no food database, a file that
// cannot be read whole, an unknown user. A command that writes passes lock: the folder is taken
// before loading, and 1 is returned when another program holds it.
int loadUserStore(const UserDataOptions& options, const char* argv0, model::Store& store,
                  model::FolderLock* lock = nullptr);
// 0, or prints why options.badDate is no date (or none the files can hold) and returns 2.
int checkDates(const UserDataOptions& options);

} // namespace velmora::cli
