#pragma once

#include <QComboBox>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "fitness/FitnessText.h"

namespace velmora::fitness {

// Fills the editable name list of a definition dialog: the names sorted, each item's data the
// definition's identifier. Selects the definition of select, or nothing.
template <typename Definition>
void fillDefinitionNames(QComboBox* combo, const std::vector<Definition>& list,
                         std::int32_t select = -1)
{
    std::vector<const Definition*> sorted;
    for (const Definition& d : list)
        sorted.push_back(&d);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Definition* a, const Definition* b) { return a->name < b->name; });
    const QSignalBlocker block(combo);
    combo->clear();
    for (const Definition* d : sorted)
        combo->addItem(ui::toQt(d->name), d->id);
    combo->setCurrentIndex(combo->findData(select));
    if (combo->currentIndex() < 0)
        combo->setEditText(QString());
}

// The definition of an identifier in a list, or nullptr.
template <typename Definition>
const Definition* definitionWithId(const std::vector<Definition>& list, std::int32_t id)
{
    for (const Definition& d : list)
        if (d.id == id)
            return &d;
    return nullptr;
}

} // namespace velmora::fitness
