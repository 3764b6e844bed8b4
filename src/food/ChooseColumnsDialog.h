#pragma once

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include <QDialog>
#include <QString>

class QComboBox;

namespace velmora::food {

class ColumnChain;

// "Choose Columns": ten chained drop lists of the items a list page can show as columns. Each
// offers " <No Column>" and every item by name; a list is enabled only while the one before it
// holds an item. On OK the slots up to the first " <No Column>" are kept, the rest become -1.
class ChooseColumnsDialog : public QDialog
{
    Q_OBJECT

public:
    // items: name and value of every choosable item; chosen: the ten slots, read on opening and
    // written on OK.
    ChooseColumnsDialog(const std::vector<std::pair<QString, int>>& items,
                        std::array<int, 10>& chosen, QWidget* parent = nullptr);
    ~ChooseColumnsDialog() override;

    void accept() override;

    // The drop list of a slot (0-based), for tests and keyboard navigation.
    QComboBox* columnList(int slot) const { return m_lists[static_cast<std::size_t>(slot)]; }

private:
    void onChoice(int slot);
    void updateEnabling();

    std::array<int, 10>& m_chosen;
    std::unique_ptr<ColumnChain> m_chain;
    std::array<QComboBox*, 10> m_lists{};
};

} // namespace velmora::food
