// One libFuzzer entry point per file kind; the build makes one target per row of the file-kinds
// table and names the row with VELMORA_FUZZ_KIND. A reader must either succeed or report an
// error: it may never read out of bounds, overflow, or allocate in proportion to a number it has
// not checked against the bytes left. What it reads must write back and read again to the same
// bytes, and the salvaging reader must survive the same input.

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/FileKinds.h"

using namespace velmora::model;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FileKindInfo* const kind = findFileKind(VELMORA_FUZZ_KIND);
    if (!kind)
        __builtin_trap();
    const std::span<const std::uint8_t> bytes(data, size);
    auto once = kind->rewrite(bytes, "fuzz");
    if (once) {
        auto twice = kind->rewrite(once.value(), "fuzz");
        if (!twice || twice.value() != once.value())
            __builtin_trap();
    }
    kind->salvage(bytes, "fuzz");
    return 0;
}
