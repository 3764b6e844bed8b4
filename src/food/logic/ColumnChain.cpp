#include "food/logic/ColumnChain.h"

#include <algorithm>

namespace velmora::food {

ColumnChain::ColumnChain(const Slots& stored, const std::vector<std::int32_t>& offered)
{
    for (std::size_t k = 0; k < SlotCount; ++k) {
        const bool known = std::find(offered.begin(), offered.end(), stored[k]) != offered.end();
        m_choices[k] = (isItem(stored[k]) && known) ? stored[k] : NoColumn;
    }
}

bool ColumnChain::isEnabled(std::size_t slot) const
{
    if (slot >= SlotCount)
        return false;
    for (std::size_t k = 0; k < slot; ++k)
        if (!isItem(m_choices[k]))
            return false;
    return true;
}

bool ColumnChain::choose(std::size_t slot, std::int32_t value)
{
    if (!isEnabled(slot))
        return false;
    m_choices[slot] = value;
    return true;
}

ColumnChain::Slots ColumnChain::result() const
{
    Slots out;
    out.fill(NoColumn);
    for (std::size_t k = 0; k < SlotCount && isItem(m_choices[k]); ++k)
        out[k] = m_choices[k];
    return out;
}

} // namespace velmora::food
