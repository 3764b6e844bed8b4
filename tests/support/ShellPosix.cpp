#include "support/Shell.h"

#include <cstdlib>

#include <sys/wait.h>

namespace velmora::test {

std::string shellQuote(const std::string& argument)
{
    std::string q = "'";
    for (char c : argument)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

int runShell(const std::string& commandLine)
{
    const int status = std::system(commandLine.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace velmora::test
