#include "food/SuggestionList.h"

#include <QScrollBar>

namespace velmora::food {

SuggestionList::SuggestionList(QWidget* box, QWidget* parent) : QListWidget(parent), m_box(box)
{
    setObjectName(QStringLiteral("suggestionList"));
    // A click on a row must leave the keyboard in the search box: the list never takes the focus
    // and hands any focus it is given to the box.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setFocusPolicy(Qt::NoFocus);
    setFocusProxy(box);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setFrameShape(QFrame::Box);
    hide();
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { emit chosen(item->data(Qt::UserRole).toInt()); });
}

void SuggestionList::showRows(const std::vector<std::pair<QString, std::int32_t>>& rows)
{
    clear();
    if (rows.empty()) {
        hide();
        return;
    }
    for (const auto& [name, number] : rows) {
        auto* item = new QListWidgetItem(name, this);
        item->setData(Qt::UserRole, number);
        item->setToolTip(name);
    }
    setCurrentRow(-1);
    clearSelection();
    place();
    show();
    raise();
}

void SuggestionList::place()
{
    const QPoint under = m_box->mapTo(parentWidget(), QPoint(0, m_box->height()));
    const int rowHeight = count() > 0 ? sizeHintForRow(0) : fontMetrics().height();
    const int height = rowHeight * count() + 2 * frameWidth();
    // As wide as the box, or as the parent lets it be when the names are long.
    const int wanted = std::max(m_box->width(), sizeHintForColumn(0) + 2 * frameWidth() + 8);
    const int width = std::min(wanted, parentWidget()->width() - under.x());
    setGeometry(under.x(), under.y(), width, height);
}

void SuggestionList::step(int delta)
{
    if (count() == 0)
        return;
    int row = currentRow();
    if (row < 0 || !currentItem()->isSelected())
        row = delta > 0 ? 0 : count() - 1;
    else
        row = std::clamp(row + delta, 0, count() - 1);
    setCurrentRow(row);
}

std::int32_t SuggestionList::currentFood() const
{
    const QListWidgetItem* item = currentItem();
    return item && item->isSelected() ? item->data(Qt::UserRole).toInt() : -1;
}

std::int32_t SuggestionList::food(int row) const
{
    const QListWidgetItem* it = item(row);
    return it ? it->data(Qt::UserRole).toInt() : -1;
}

} // namespace velmora::food
