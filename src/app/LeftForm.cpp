// The navigation form on the left of the main window.

#include "app/LeftForm.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QIcon>
#include <QToolButton>
#include <QVBoxLayout>

namespace velmora::app {

const std::array<LeftForm::Button, 6> LeftForm::Buttons{{
    {1017, ui::PageId::JournalNotes, "Journal Notes", ":/velmora/icons/notes.svg"},
    {1001, ui::PageId::Health, "Health", ":/velmora/icons/health.svg"},
    {1002, ui::PageId::FitnessLog, "Fitness Log", ":/velmora/icons/fitness.svg"},
    {1000, ui::PageId::Food, "Food", ":/velmora/icons/food.svg"},
    {1018, ui::PageId::JournalList, "Journal List", ":/velmora/icons/list.svg"},
    {1019, ui::PageId::Graphs, "Graphs", ":/velmora/icons/graphs.svg"},
}};

LeftForm::LeftForm(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("leftForm"));
    setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 8, 6, 8);
    layout->setSpacing(4);
    m_group = new QButtonGroup(this);
    m_group->setExclusive(true);
    for (const Button& b : Buttons) {
        auto* button = new QToolButton(this);
        button->setObjectName(QStringLiteral("nav%1").arg(b.commandId));
        button->setText(QString::fromLatin1(b.caption));
        button->setToolTip(QString::fromLatin1(b.caption));
        button->setIcon(QIcon(QString::fromLatin1(b.icon)));
        button->setIconSize(QSize(32, 32));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setMinimumHeight(64);
        m_group->addButton(button, b.commandId);
        layout->addWidget(button);
    }
    layout->addStretch();
    connect(m_group, &QButtonGroup::idClicked, this, [this](int commandId) {
        for (const Button& b : Buttons) {
            if (b.commandId == commandId)
                emit pageRequested(b.page);
        }
    });
}

void LeftForm::selectPage(ui::PageId page)
{
    for (const Button& b : Buttons) {
        if (b.page == page)
            m_group->button(b.commandId)->setChecked(true);
    }
}

std::optional<ui::PageId> LeftForm::selectedPage() const
{
    const int id = m_group->checkedId();
    for (const Button& b : Buttons) {
        if (b.commandId == id)
            return b.page;
    }
    return std::nullopt;
}

QToolButton* LeftForm::buttonForCommand(int commandId) const
{
    return qobject_cast<QToolButton*>(m_group->button(commandId));
}

} // namespace velmora::app
