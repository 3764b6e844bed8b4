// velmora-cli sync tandry|korvel import|export --data-dir DIR [--user NAME] --handheld-user INDEX
#include "Command.h"

#include <ctime>
#include <iostream>

#include "sync/logic/SyncCommand.h"

namespace velmora::cli {

std::string syncHelp()
{
    return sync::SyncCommandHelp;
}

int syncCommand(const std::vector<std::string>& args, const char* argv0)
{
    return sync::runSyncCommand(args, std::cout, std::cerr, std::time(nullptr),
                                programFolder(argv0));
}

} // namespace velmora::cli
