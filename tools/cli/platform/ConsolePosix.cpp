// The console of POSIX systems; see Console.h.
#include "platform/Console.h"

namespace velmora::cli {

namespace fs = std::filesystem;

std::vector<std::string> commandArguments(int argc, char** argv)
{
    return std::vector<std::string>(argv + 1, argv + argc);
}

fs::path runningProgram(const char* argv0)
{
    std::error_code ec;
#if defined(__linux__)
    const fs::path self = fs::read_symlink("/proc/self/exe", ec);
    if (!ec)
        return self;
#endif
    const fs::path p = fs::absolute(argv0, ec);
    return ec ? fs::current_path() / "velmora-cli" : p;
}

void prepareConsole() {}

} // namespace velmora::cli
