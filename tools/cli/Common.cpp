#include "Command.h"

#include <cstdio>

#include "model/FileKinds.h"

namespace velmora::cli {

bool wantsHelp(const std::vector<std::string>& args)
{
    for (const auto& a : args)
        if (a == "--help" || a == "-h")
            return true;
    return false;
}

int fail(const std::string& message)
{
    std::fprintf(stderr, "velmora-cli: %s\n", message.c_str());
    return 1;
}

int usage(const std::string& help)
{
    std::fputs(help.c_str(), stderr);
    return 2;
}

int printHelp(const std::string& help)
{
    std::fputs(help.c_str(), stdout);
    return 0;
}

std::string kindList()
{
    std::string out;
    for (const model::FileKindInfo& k : model::fileKinds()) {
        if (!out.empty())
            out += ", ";
        out += std::string(k.name) + " (" + std::string(k.description) + ")";
    }
    return out;
}

} // namespace velmora::cli
