// velmora-cli rewrite KIND IN OUT
#include "Command.h"

#include "model/FileKinds.h"
#include "model/SafeFile.h"
#include "model/TextCodec.h"

namespace velmora::cli {

std::string rewriteHelp()
{
    return "Usage: velmora-cli rewrite KIND IN OUT\n"
           "\n"
           "Reads IN with the reader for KIND and writes what was read to OUT with the matching "
           "writer,\n"
           "without any normalisation. A canonical file is reproduced byte for byte. When IN "
           "cannot be\n"
           "read, the error is printed and OUT is neither created nor changed.\n"
           "\n"
           "KIND: " +
           kindList() + ".\n";
}

int rewriteCommand(const std::vector<std::string>& args, const char*)
{
    const model::FileKindInfo* kind = args.size() == 3 ? model::findFileKind(args[0]) : nullptr;
    if (!kind)
        return usage(rewriteHelp());
    auto bytes = model::readWholeFile(model::pathFromUtf8(args[1]));
    if (!bytes)
        return fail(bytes.error().message());
    auto out = kind->rewrite(bytes.value(), args[1]);
    if (!out)
        return fail(out.error().message());
    const std::filesystem::path target = model::pathFromUtf8(args[2]);
    if (model::Status written = model::writeFileAtomically(target, out.value()); !written)
        return fail(written.error().message());
    return 0;
}

} // namespace velmora::cli
