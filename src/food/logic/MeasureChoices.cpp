#include "food/logic/MeasureChoices.h"

#include <algorithm>
#include <cmath>

#include "food/logic/MealEditing.h"
#include "model/FoodItem.h"

namespace velmora::food {

std::vector<MeasureChoice> measureChoices(const model::FoodItem& food, bool metric)
{
    std::vector<MeasureChoice> list;
    if (food.isCustom())
        return list;
    list.reserve(food.measures.size() + 2);
    for (const model::FoodMeasure& m : food.measures)
        if (m.description != GramText && m.description != OunceText)
            list.push_back({m.description, static_cast<double>(m.grams), AmountMaximum, false});

    const MeasureChoice gram{GramText, GramWeight, WeightAmountMaximum, true};
    const MeasureChoice ounce{OunceText, OunceWeight, WeightAmountMaximum, true};
    list.push_back(metric ? gram : ounce);
    list.push_back(metric ? ounce : gram);
    return list;
}

double entryAmountFor(const MeasureChoice& choice, double count)
{
    if (!std::isfinite(count) || count < AmountFloor)
        count = AmountFloor;
    count = std::min(count, choice.maximum);
    return count * choice.grams * 0.01;
}

} // namespace velmora::food
