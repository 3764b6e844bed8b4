#include "food/QuarterColumns.h"

#include <QEvent>
#include <QHeaderView>
#include <QTreeWidget>

namespace velmora::food {

QuarterColumns::QuarterColumns(QTreeWidget* list) : QObject(list), m_list(list)
{
    m_list->header()->setStretchLastSection(false);
    m_list->viewport()->installEventFilter(this);
    apply();
}

bool QuarterColumns::eventFilter(QObject* watched, QEvent* event)
{
    // Only the list's viewport is watched. The event type is tested first: while the list is being
    // destroyed its viewport still sends events, and the list must not be touched then.
    if (event->type() == QEvent::Resize)
        apply();
    return QObject::eventFilter(watched, event);
}

void QuarterColumns::apply()
{
    const int width = m_list->viewport()->width();
    m_list->setColumnWidth(0, std::max(60, width * 3 / 4 - 20));
    m_list->setColumnWidth(1, std::max(40, width / 4));
}

} // namespace velmora::food
