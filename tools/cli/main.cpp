// velmora-cli: headless operations on the data files, built on the core library only.
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "Command.h"
#include "platform/Console.h"

using namespace velmora::cli;

namespace {

constexpr std::array<Command, 7> Commands = {{
    {"rewrite", &rewriteHelp, &rewriteCommand},
    {"dump", &dumpHelp, &dumpCommand},
    {"resave", &resaveHelp, &resaveCommand},
    {"report", &reportHelp, &reportCommand},
    {"export", &exportHelp, &exportCommand},
    {"import-health", &importHealthHelp, &importHealthCommand},
    {"sync", &syncHelp, &syncCommand},
}};

std::string mainHelp()
{
    return "Usage: velmora-cli COMMAND [ARGUMENTS]\n"
           "\n"
           "Headless operations on Velmora's data files.\n"
           "\n"
           "Commands:\n"
           "  rewrite KIND IN OUT   read IN and write it unchanged to OUT\n"
           "  dump KIND FILE        print the content of FILE as JSON\n"
           "  resave [--data-dir DIR] [--foods FILE]\n"
           "                        load and save the data folder as the program does at start-up\n"
           "                        and shut-down\n"
           "  report --from DATE --to DATE [--csv]\n"
           "                        print the nutritional analysis of a period\n"
           "  export --out FOLDER [--from DATE] [--to DATE] [--json]\n"
           "                        export a journal as CSV files (and JSON)\n"
           "  import-health FILE [--replace] [--yes]\n"
           "                        import weigh-ins from a CSV file\n"
           "  sync tandry|korvel import|export --handheld-user INDEX [--yes]\n"
           "                        exchange a journal with a handheld's transfer files\n"
           "\n"
           "report, export and import-health take [--data-dir DIR] [--foods FILE] [--user NAME];\n"
           "sync takes --data-dir DIR [--user NAME].\n"
           "KIND is one of: " +
           kindList() +
           ".\n"
           "Run 'velmora-cli COMMAND --help' for the details of a command.\n";
}

} // namespace

int main(int argc, char** argv)
{
    prepareConsole();
    std::vector<std::string> args = commandArguments(argc, argv);
    if (args.empty())
        return usage(mainHelp());
    const std::string name = args.front();
    args.erase(args.begin());
    if (name == "--help" || name == "-h" || name == "help")
        return printHelp(mainHelp());
    for (const Command& command : Commands) {
        if (name != command.name)
            continue;
        if (wantsHelp(args))
            return printHelp(command.help());
        return command.run(args, argv[0]);
    }
    std::fprintf(stderr, "velmora-cli: unknown command '%s'\n", name.c_str());
    return usage(mainHelp());
}
