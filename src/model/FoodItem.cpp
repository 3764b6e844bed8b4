#include "model/FoodItem.h"

#include <bit>

namespace velmora::model {

float IntakeRecord::upperLimit(int g) const
{
    if (g < 0 || g >= LifeStageGroupCount)
        return 0.0f;
    return std::bit_cast<float>(second[static_cast<std::size_t>(g)]);
}

void IntakeRecord::setUpperLimit(int g, float v)
{
    if (g < 0 || g >= LifeStageGroupCount)
        return;
    second[static_cast<std::size_t>(g)] = std::bit_cast<std::uint32_t>(v);
}

} // namespace velmora::model
