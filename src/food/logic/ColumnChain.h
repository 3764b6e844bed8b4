#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora::food {

// The ten chained column choices of the list pages. Each slot holds an item value (a nutrient
// number, or an exercise field on the fitness log) or NoColumn. Used slots form a prefix: a slot
// can only be chosen while the slot before it holds an item, and storing stops at the first empty
// slot.
class ColumnChain
{
public:
    static constexpr std::size_t SlotCount = 10;
    // The value of the " <No Column>" entry, and of an unused slot.
    static constexpr std::int32_t NoColumn = -1;
    using Slots = std::array<std::int32_t, SlotCount>;

    // Starts from stored slots; a slot whose item is not among the offered ones shows as empty.
    ColumnChain(const Slots& stored, const std::vector<std::int32_t>& offered);

    std::int32_t choice(std::size_t slot) const { return m_choices[slot]; }
    // Sets a slot's choice; refused (false) while the slot is disabled.
    bool choose(std::size_t slot, std::int32_t value);
    // The first slot is always enabled; slot k+1 while slot k is enabled and holds an item.
    bool isEnabled(std::size_t slot) const;
    // The slots to keep: the choices up to the first empty one, NoColumn from there on.
    Slots result() const;

    static bool isItem(std::int32_t value) { return value != NoColumn; }

private:
    Slots m_choices{};
};

} // namespace velmora::food
