#include "support/Shell.h"

#include <cstdlib>

#include "model/platform/WindowsText.h"

namespace velmora::test {

// Quoted as the programs' start-up code splits a command line: backslashes count only before a
// quote, where they are doubled.
std::string shellQuote(const std::string& argument)
{
    std::string q = "\"";
    std::size_t backslashes = 0;
    for (char c : argument) {
        if (c == '\\') {
            ++backslashes;
            continue;
        }
        q.append(c == '"' ? 2 * backslashes + 1 : backslashes, '\\');
        backslashes = 0;
        q += c;
    }
    q.append(2 * backslashes, '\\');
    return q + "\"";
}

int runShell(const std::string& commandLine)
{
    // cmd /c takes away the first and the last quote of a line that holds more than two, so the
    // line is wrapped in one more pair; the wide call keeps arguments beyond the 8-bit code page.
    const std::wstring line = model::platform::wideFromUtf8("\"" + commandLine + "\"");
    return _wsystem(line.c_str());
}

} // namespace velmora::test
