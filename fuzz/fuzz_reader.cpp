// One libFuzzer entry point per file kind; the kind is chosen when the target is compiled.
// A reader must either succeed or report an error: it may never read out of bounds, overflow,
// or allocate in proportion to a number it has not checked against the bytes left.

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/FoodDatabase.h"
#include "model/UserDatabase.h"

using namespace velmora::model;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span<const std::uint8_t> bytes(data, size);
#if defined(VELMORA_FUZZ_KIND_foods)
    auto result = FoodDatabase::parse(bytes, "foods.db");
    if (result) {
        // What was read must write back and read again to the same bytes.
        const auto again = result.value().serialize();
        auto second = FoodDatabase::parse(again, "foods.db");
        if (!second || second.value().serialize() != again)
            __builtin_trap();
    }
#elif defined(VELMORA_FUZZ_KIND_shared)
    auto result = SharedData::parse(bytes, "velmora.db");
    if (result) {
        const auto again = result.value().serialize();
        auto second = SharedData::parse(again, "velmora.db");
        if (!second || second.value().serialize() != again)
            __builtin_trap();
    }
#elif defined(VELMORA_FUZZ_KIND_user)
    auto result = UserJournal::parse(bytes, "user.db");
    if (result) {
        const auto again = result.value().serialize();
        auto second = UserJournal::parse(again, "user.db");
        if (!second || second.value().serialize() != again)
            __builtin_trap();
    }
#else
#error "no fuzz kind chosen"
#endif
    return 0;
}
