#include "charts/BarChart.h"

#include <QPainter>

namespace velmora::charts {

BarChart::BarChart(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(320, 200);
}

int BarChart::addSeries(const QString& name, const QColor& colour)
{
    const int s = m_bars.addSeries(name, colour);
    update();
    return s;
}

int BarChart::setValue(int series, const QString& category, double value)
{
    const int c = m_bars.setValue(series, category, value);
    update();
    return c;
}

void BarChart::clear()
{
    m_bars.clear();
    update();
}

void BarChart::setTitle(const QString& title)
{
    m_bars.setTitle(title);
    update();
}

void BarChart::setAxisLabels(const QString& valueAxis, const QString& categoryAxis)
{
    m_bars.setAxisLabels(valueAxis, categoryAxis);
    update();
}

void BarChart::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    m_bars.paint(p, rect());
}

} // namespace velmora::charts
