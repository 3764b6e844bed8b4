#include "charts/PieChart.h"

#include <QPainter>
#include <QPixmap>

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
    // Drawn off screen first and copied in one piece, so a repaint never flickers.
    QPixmap buffer(size() * devicePixelRatioF());
    buffer.setDevicePixelRatio(devicePixelRatioF());
    {
        QPainter p(&buffer);
        paintTo(p);
    }
    QPainter screen(this);
    screen.drawPixmap(0, 0, buffer);
}

} // namespace velmora::charts
