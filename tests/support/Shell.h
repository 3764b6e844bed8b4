#pragma once

#include <string>

namespace velmora::test {

// Command lines for the system's shell (sh on POSIX systems, cmd on Windows), for tests that run
// the built programs with redirected output. Texts are UTF-8.

// One argument, quoted so that the shell and the program receive it unchanged.
std::string shellQuote(const std::string& argument);
// Runs a command line; returns the command's exit code, or -1 when it did not end normally.
int runShell(const std::string& commandLine);

} // namespace velmora::test
