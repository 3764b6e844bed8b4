#include "food/ChooseColumnsDialog.h"

#include <algorithm>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "food/logic/ColumnChain.h"

namespace velmora::food {

ChooseColumnsDialog::ChooseColumnsDialog(const std::vector<std::pair<QString, int>>& items,
                                         std::array<int, 10>& chosen, QWidget* parent)
    : QDialog(parent), m_chosen(chosen)
{
    setWindowTitle(QStringLiteral("Choose Columns"));

    auto sorted = items;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::int32_t> offered;
    offered.reserve(sorted.size());
    for (const auto& item : sorted)
        offered.push_back(item.second);
    ColumnChain::Slots stored{};
    std::copy(chosen.begin(), chosen.end(), stored.begin());
    m_chain = std::make_unique<ColumnChain>(stored, offered);

    auto* form = new QFormLayout;
    for (std::size_t k = 0; k < m_lists.size(); ++k) {
        auto* list = new QComboBox(this);
        list->setMaxVisibleItems(25);
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(28);
        list->addItem(QStringLiteral(" <No Column>"), ColumnChain::NoColumn);
        for (const auto& item : sorted)
            list->addItem(item.first, item.second);
        list->setCurrentIndex(std::max(0, list->findData(m_chain->choice(k))));
        m_lists[k] = list;
        form->addRow(QStringLiteral("Column %1:").arg(k + 1), list);
        connect(list, &QComboBox::currentIndexChanged, this,
                [this, k] { onChoice(static_cast<int>(k)); });
    }

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &ChooseColumnsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ChooseColumnsDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    updateEnabling();
}

ChooseColumnsDialog::~ChooseColumnsDialog() = default;

void ChooseColumnsDialog::onChoice(int slot)
{
    QComboBox* list = m_lists[static_cast<std::size_t>(slot)];
    if (!m_chain->choose(static_cast<std::size_t>(slot), list->currentData().toInt())) {
        // A disabled list cannot be chosen from; put back what the chain holds.
        const QSignalBlocker block(list);
        list->setCurrentIndex(
            std::max(0, list->findData(m_chain->choice(static_cast<std::size_t>(slot)))));
    }
    updateEnabling();
}

void ChooseColumnsDialog::updateEnabling()
{
    for (std::size_t k = 0; k < m_lists.size(); ++k)
        m_lists[k]->setEnabled(m_chain->isEnabled(k));
}

void ChooseColumnsDialog::accept()
{
    const ColumnChain::Slots result = m_chain->result();
    std::copy(result.begin(), result.end(), m_chosen.begin());
    QDialog::accept();
}

} // namespace velmora::food
