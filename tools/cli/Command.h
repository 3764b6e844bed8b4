#pragma once

#include <string>
#include <vector>

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

// Shared by the commands.
bool wantsHelp(const std::vector<std::string>& args);
int fail(const std::string& message);   // prints "velmora-cli: message"; returns 1
int usage(const std::string& help);     // prints the help on standard error; returns 2
int printHelp(const std::string& help); // prints the help on standard output; returns 0
// "foods (foods.db), shared (velmora.db), user (a user's journal file)".
std::string kindList();

} // namespace velmora::cli
