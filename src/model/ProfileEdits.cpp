#include "model/ProfileEdits.h"

#include "model/User.h"

namespace velmora::model {

namespace {

template <class T> bool assign(T& field, const T& value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace

bool setUnitsAndDays(User& user, bool metric, std::int32_t daysInLists)
{
    const bool units = assign(user.metric, metric ? 1 : 0);
    return assign(user.daysInLists, daysInLists) || units;
}

bool setFoodListMode(User& user, std::int32_t mode)
{
    return assign(user.foodListMode, mode);
}

bool setListColumns(User& user, std::span<const NutrientId> chosen)
{
    bool changed = false;
    for (std::size_t k = 0; k < chosen.size() && k < user.listColumns.size(); ++k) {
        if (user.listColumns[k] == chosen[k])
            continue;
        user.listColumnWidths[k + 1] = 0;
        user.listColumns[k] = chosen[k];
        changed = true;
    }
    return changed;
}

bool setListColumnWidth(User& user, std::size_t column, std::int32_t width)
{
    if (column >= user.listColumnWidths.size())
        return false;
    return assign(user.listColumnWidths[column], width);
}

} // namespace velmora::model
