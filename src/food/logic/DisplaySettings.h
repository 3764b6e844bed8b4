#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "model/Nutrients.h"

namespace velmora::model {
class Store;
struct User;
} // namespace velmora::model

namespace velmora::food {

// What each macronutrient pie of the food page shows, in the order of the radio buttons.
inline constexpr int PieModeCount = 4;
extern const std::array<const char*, PieModeCount> PieModeNames; // "Selected Item Graph", ...

// The ordered nutrient list of the food page's details list while it is being edited, with the
// selected entry and the enabling rules of its buttons.
class DetailsListEditor
{
public:
    explicit DetailsListEditor(std::vector<model::NutrientId> items) : m_items(std::move(items)) {}

    const std::vector<model::NutrientId>& items() const { return m_items; }
    int selected() const { return m_selected; }
    // -1 (or any position outside the list) selects nothing.
    void select(int row);

    // Appends a nutrient and selects it.
    void add(model::NutrientId n);
    // Remove, move up, move down the selected entry; the moved entry stays selected.
    bool remove();
    bool moveUp();
    bool moveDown();

    bool canRemove() const { return m_selected >= 0; }
    bool canMoveUp() const { return m_selected > 0; }
    bool canMoveDown() const
    {
        return m_selected >= 0 && m_selected + 1 < static_cast<int>(m_items.size());
    }

private:
    std::vector<model::NutrientId> m_items;
    int m_selected = -1;
};

// The nutrients that "&Add" offers: the user's goal list, or while no goal list has been set the
// list a new user gets; only nutrients that the catalogue knows, each once.
std::vector<model::NutrientId> addableNutrients(const model::Store& store);

// Writes the two pie modes (clamped to 0..3) and the details list into the user's record. At most
// 21 entries are kept; returns false when entries had to be dropped.
bool applyDisplaySettings(model::User& user, int pie1Mode, int pie2Mode,
                          const std::vector<model::NutrientId>& details);

} // namespace velmora::food
