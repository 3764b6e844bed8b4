// velmora-cli dump KIND FILE
#include "Command.h"

#include <cstdio>

#include "model/FileKinds.h"
#include "model/SafeFile.h"
#include "model/TextCodec.h"

namespace velmora::cli {

std::string dumpHelp()
{
    return "Usage: velmora-cli dump KIND FILE\n"
           "\n"
           "Prints the content of FILE as JSON on standard output. Texts are converted from\n"
           "Windows-1252 to UTF-8; times are shown in UTC.\n"
           "\n"
           "KIND: " +
           kindList() + ".\n";
}

int dumpCommand(const std::vector<std::string>& args, const char*)
{
    const model::FileKindInfo* kind = args.size() == 2 ? model::findFileKind(args[0]) : nullptr;
    if (!kind)
        return usage(dumpHelp());
    auto bytes = model::readWholeFile(model::pathFromUtf8(args[1]));
    if (!bytes)
        return fail(bytes.error().message());
    auto json = kind->json(bytes.value(), args[1]);
    if (!json)
        return fail(json.error().message());
    std::fwrite(json.value().data(), 1, json.value().size(), stdout);
    return 0;
}

} // namespace velmora::cli
