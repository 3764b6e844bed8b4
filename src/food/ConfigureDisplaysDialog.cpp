#include "food/ConfigureDisplaysDialog.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "food/logic/DisplaySettings.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/User.h"
#include "ui/Messages.h"
#include "ui/QtText.h"

namespace velmora::food {

using ui::nutrientName;

ConfigureDisplaysDialog::ConfigureDisplaysDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Configure Displays"));
    const model::User& user = m_context.store().journal.user;
    m_editor = std::make_unique<DetailsListEditor>(user.detailsList());

    auto* pies = new QHBoxLayout;
    const std::array<int, 2> modes{user.pie1Mode, user.pie2Mode};
    for (std::size_t p = 0; p < m_pies.size(); ++p) {
        auto* box = new QGroupBox(QStringLiteral("Macronutrient Graph %1").arg(p + 1), this);
        auto* column = new QVBoxLayout(box);
        m_pies[p] = new QButtonGroup(this);
        for (int mode = 0; mode < PieModeCount; ++mode) {
            auto* radio = new QRadioButton(
                QString::fromLatin1(PieModeNames[static_cast<std::size_t>(mode)]), box);
            m_pies[p]->addButton(radio, mode);
            column->addWidget(radio);
        }
        const int mode = (modes[p] >= 0 && modes[p] < PieModeCount) ? modes[p] : 0;
        m_pies[p]->button(mode)->setChecked(true);
        pies->addWidget(box);
    }

    auto* details = new QGroupBox(QStringLiteral("Selected Item Details List"), this);
    m_list = new QListWidget(details);
    m_add = new QPushButton(QStringLiteral("&Add"), details);
    m_remove = new QPushButton(QStringLiteral("&Remove"), details);
    m_up = new QPushButton(QStringLiteral("&Up"), details);
    m_down = new QPushButton(QStringLiteral("&Down"), details);
    for (QPushButton* b : {m_add, m_remove, m_up, m_down})
        b->setAutoDefault(false);
    auto* side = new QVBoxLayout;
    side->addWidget(m_add);
    side->addWidget(m_remove);
    side->addSpacing(12);
    side->addWidget(m_up);
    side->addWidget(m_down);
    side->addStretch(1);
    auto* detailsLayout = new QHBoxLayout(details);
    detailsLayout->addWidget(m_list, 1);
    detailsLayout->addLayout(side);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &ConfigureDisplaysDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ConfigureDisplaysDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pies);
    layout->addWidget(details, 1);
    layout->addWidget(buttons);

    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) {
        m_editor->select(row);
        updateButtons();
    });
    connect(m_add, &QPushButton::clicked, this, &ConfigureDisplaysDialog::onAdd);
    connect(m_remove, &QPushButton::clicked, this, &ConfigureDisplaysDialog::onRemove);
    connect(m_up, &QPushButton::clicked, this, [this] { onMove(true); });
    connect(m_down, &QPushButton::clicked, this, [this] { onMove(false); });

    fillList();
    resize(460, 480);
}

ConfigureDisplaysDialog::~ConfigureDisplaysDialog() = default;

void ConfigureDisplaysDialog::fillList()
{
    const QSignalBlocker block(m_list);
    m_list->clear();
    for (model::NutrientId n : m_editor->items()) {
        auto* item = new QListWidgetItem(nutrientName(m_context.store(), n), m_list);
        item->setData(Qt::UserRole, n);
    }
    m_list->setCurrentRow(m_editor->selected());
    updateButtons();
}

void ConfigureDisplaysDialog::onAdd()
{
    if (m_editor->items().size() >= model::User::DetailsSlotCount) {
        ui::showMessageText(this, QStringLiteral("The details list holds at most %1 nutrients. "
                                                 "Remove one before adding another.")
                                      .arg(model::User::DetailsSlotCount));
        return;
    }
    QMenu menu(this);
    for (model::NutrientId n : addableNutrients(m_context.store())) {
        QAction* action = menu.addAction(nutrientName(m_context.store(), n));
        action->setData(n);
    }
    if (menu.isEmpty())
        return;
    QAction* chosen = menu.exec(m_add->mapToGlobal(QPoint(0, m_add->height())));
    if (chosen == nullptr)
        return;
    m_editor->add(chosen->data().toInt());
    fillList();
}

void ConfigureDisplaysDialog::onRemove()
{
    if (m_editor->remove())
        fillList();
}

void ConfigureDisplaysDialog::onMove(bool up)
{
    if (up ? m_editor->moveUp() : m_editor->moveDown())
        fillList();
}

void ConfigureDisplaysDialog::updateButtons()
{
    m_remove->setEnabled(m_editor->canRemove());
    m_up->setEnabled(m_editor->canMoveUp());
    m_down->setEnabled(m_editor->canMoveDown());
}

void ConfigureDisplaysDialog::accept()
{
    model::User& user = m_context.store().journal.user;
    const bool fits = applyDisplaySettings(user, m_pies[0]->checkedId(), m_pies[1]->checkedId(),
                                           m_editor->items());
    m_context.notifyChanged(ui::Change::Profile);
    if (!fits)
        ui::showMessageText(
            this, QStringLiteral("The details list holds at most %1 nutrients; only the first %1 "
                                 "were kept.")
                      .arg(model::User::DetailsSlotCount));
    QDialog::accept();
}

} // namespace velmora::food
