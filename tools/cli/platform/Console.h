#pragma once

// What the console tool asks of the operating system: its arguments as UTF-8, where it was
// started from, and a console that shows UTF-8. POSIX systems: ConsolePosix.cpp; Windows:
// ConsoleWindows.cpp.

#include <filesystem>
#include <string>
#include <vector>

namespace velmora::cli {

// The arguments after the program's name, UTF-8. On Windows they are read from the wide command
// line, so that a folder or user name beyond ASCII arrives as typed.
std::vector<std::string> commandArguments(int argc, char** argv);
// The running program's file; argv0 is used only where the system cannot tell.
std::filesystem::path runningProgram(const char* argv0);
// Standard output and error carry UTF-8 with "\n" line ends on every system; a Windows console
// is told to show UTF-8.
void prepareConsole();

} // namespace velmora::cli
