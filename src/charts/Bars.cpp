#include "charts/Bars.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace velmora::charts {

int Bars::addSeries(const QString& name, const QColor& colour)
{
    m_colours.push_back(colour);
    return m_values.addSeries(name.toStdString());
}

int Bars::setValue(int series, const QString& category, double value)
{
    return m_values.setValue(series, category.toStdString(), value);
}

void Bars::clear()
{
    m_values.clear();
    m_colours.clear();
}

void Bars::setAxisLabels(const QString& valueAxis, const QString& categoryAxis)
{
    m_valueLabel = valueAxis;
    m_categoryLabel = categoryAxis;
}

QStringList Bars::categories() const
{
    QStringList out;
    for (const std::string& c : m_values.categories())
        out.append(QString::fromStdString(c));
    return out;
}

QString Bars::seriesName(int s) const
{
    return QString::fromStdString(m_values.seriesName(s));
}

void Bars::paint(QPainter& painter, const QRect& area) const
{
    painter.save();
    painter.fillRect(area, Qt::white);
    const QFontMetrics fm(painter.font());
    const int line = fm.height();

    QFont titleFont = painter.font();
    titleFont.setBold(true);
    painter.setFont(titleFont);
    painter.setPen(Qt::black);
    painter.drawText(QRect(area.left(), area.top() + 4, area.width(), line + 4), Qt::AlignCenter,
                     m_title);
    painter.setFont(QFont(titleFont.family(), titleFont.pointSize()));

    // Legend under the title.
    int legendX = area.left() + 60;
    const int legendY = area.top() + line + 10;
    for (int s = 0; s < m_values.seriesCount(); ++s) {
        const QString name = seriesName(s);
        painter.fillRect(QRect(legendX, legendY + 2, 12, line - 4),
                         m_colours[static_cast<std::size_t>(s)]);
        painter.drawText(QPoint(legendX + 16, legendY + fm.ascent()), name);
        legendX += 16 + fm.horizontalAdvance(name) + 20;
    }

    const BarAxis axis = barAxis(m_values.maximum());
    const int axisWidth = fm.horizontalAdvance(QString::number(axis.top)) + 28;
    const QRect plot(area.left() + axisWidth, legendY + line + 8, area.width() - axisWidth - 12,
                     area.height() - (legendY - area.top()) - 4 * line - 20);
    if (plot.width() <= 0 || plot.height() <= 0) {
        painter.restore();
        return;
    }

    // Value axis with grid lines and its label.
    for (double v = 0; v <= axis.top + axis.step / 2; v += axis.step) {
        const int y = plot.bottom() - static_cast<int>(v / axis.top * plot.height());
        painter.setPen(QColor(220, 220, 220));
        painter.drawLine(plot.left(), y, plot.right(), y);
        painter.setPen(Qt::black);
        painter.drawText(QRect(area.left(), y - line / 2, axisWidth - 6, line),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(v));
    }
    painter.save();
    painter.translate(area.left() + line / 2 + 2, plot.center().y());
    painter.rotate(-90);
    painter.drawText(QRect(-plot.height() / 2, -line / 2, plot.height(), line), Qt::AlignCenter,
                     m_valueLabel);
    painter.restore();
    painter.drawLine(plot.bottomLeft(), plot.bottomRight());
    painter.drawLine(plot.bottomLeft(), plot.topLeft());

    const int categoryCount = m_values.categoryCount();
    const int seriesCount = m_values.seriesCount();
    if (categoryCount == 0 || seriesCount == 0) {
        painter.restore();
        return;
    }
    const QStringList names = categories();
    const double slot = static_cast<double>(plot.width()) / categoryCount;
    const double barWidth = slot * 0.8 / seriesCount;
    // Labels wider than their slot are staggered over two lines instead of being cut short.
    bool stagger = false;
    for (const QString& c : names)
        stagger = stagger || fm.horizontalAdvance(c) > static_cast<int>(slot) - 2;
    for (int c = 0; c < categoryCount; ++c) {
        const double slotLeft = plot.left() + c * slot + slot * 0.1;
        for (int s = 0; s < seriesCount; ++s) {
            const int h = static_cast<int>(m_values.value(s, c) / axis.top * plot.height());
            painter.fillRect(QRectF(slotLeft + s * barWidth, plot.bottom() - h, barWidth - 1, h),
                             m_colours[static_cast<std::size_t>(s)]);
        }
        painter.setPen(Qt::black);
        const int labelWidth = static_cast<int>(stagger ? 2 * slot : slot);
        const QRect labelRect(plot.left() + static_cast<int>((c + 0.5) * slot) - labelWidth / 2,
                              plot.bottom() + 4 + (stagger && c % 2 ? line : 0), labelWidth, line);
        painter.drawText(labelRect, Qt::AlignCenter,
                         fm.elidedText(names[c], Qt::ElideRight, labelRect.width()));
    }
    painter.drawText(
        QRect(plot.left(), plot.bottom() + (stagger ? 2 : 1) * line + 6, plot.width(), line),
        Qt::AlignCenter, m_categoryLabel);
    painter.restore();
}

} // namespace velmora::charts
