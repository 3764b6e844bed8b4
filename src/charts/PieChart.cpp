#include "charts/PieChart.h"

#include <QPainter>

namespace velmora::charts {

PieChart::PieChart(QWidget* parent) : QWidget(parent)
{
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool PieChart::addSlice(const QColor& colour, int value, double amount, const QString& label,
                        bool isPercent)
{
    m_pie.addSlice(colour, value, amount, label, isPercent);
    update();
    return true;
}

void PieChart::removeAllSlices()
{
    m_pie.removeAllSlices();
    update();
}

void PieChart::setTitle(const QString& title)
{
    m_pie.setTitle(title);
    update();
}

void PieChart::paintEvent(QPaintEvent*)
{
    // The window's backing store already composes every widget off screen before it is shown,
    // so the pie is painted straight onto it without a flicker.
    QPainter painter(this);
    paintTo(painter);
}

} // namespace velmora::charts
