#include "food/logic/DisplaySettings.h"

#include <algorithm>

#include "model/Store.h"
#include "model/User.h"

namespace velmora::food {

const std::array<const char*, PieModeCount> PieModeNames{"Selected Item Graph", "Meal Graph",
                                                         "Day Graph", "Daily Goals Graph"};

void DetailsListEditor::select(int row)
{
    m_selected = (row >= 0 && row < static_cast<int>(m_items.size())) ? row : -1;
}

void DetailsListEditor::add(model::NutrientId n)
{
    m_items.push_back(n);
    m_selected = static_cast<int>(m_items.size()) - 1;
}

bool DetailsListEditor::remove()
{
    if (!canRemove())
        return false;
    m_items.erase(m_items.begin() + m_selected);
    if (m_selected >= static_cast<int>(m_items.size()))
        m_selected = static_cast<int>(m_items.size()) - 1;
    return true;
}

bool DetailsListEditor::moveUp()
{
    if (!canMoveUp())
        return false;
    std::swap(m_items[static_cast<std::size_t>(m_selected)],
              m_items[static_cast<std::size_t>(m_selected - 1)]);
    --m_selected;
    return true;
}

bool DetailsListEditor::moveDown()
{
    if (!canMoveDown())
        return false;
    std::swap(m_items[static_cast<std::size_t>(m_selected)],
              m_items[static_cast<std::size_t>(m_selected + 1)]);
    ++m_selected;
    return true;
}

std::vector<model::NutrientId> addableNutrients(const model::Store& store)
{
    const auto& goals = store.journal.user.goalNutrients;
    const std::vector<model::NutrientId> source =
        goals.empty() ? model::defaultGoalNutrients(store.foods) : goals;
    std::vector<model::NutrientId> out;
    for (model::NutrientId n : source) {
        if (store.foods.catalogue().find(n) == nullptr)
            continue;
        if (std::find(out.begin(), out.end(), n) == out.end())
            out.push_back(n);
    }
    return out;
}

bool applyDisplaySettings(model::User& user, int pie1Mode, int pie2Mode,
                          const std::vector<model::NutrientId>& details)
{
    user.pie1Mode = std::clamp(pie1Mode, 0, PieModeCount - 1);
    user.pie2Mode = std::clamp(pie2Mode, 0, PieModeCount - 1);
    user.setDetailsList(details);
    return details.size() <= model::User::DetailsSlotCount;
}

} // namespace velmora::food
