#include "food/BarChart.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora::food {

namespace {
// A round step for the value axis that gives about five grid lines.
double niceStep(double maximum)
{
    if (maximum <= 0)
        return 1;
    const double raw = maximum / 5;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (double m : {1.0, 2.0, 5.0, 10.0})
        if (raw <= m * power)
            return m * power;
    return 10 * power;
}
} // namespace

BarChart::BarChart(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(320, 200);
}

int BarChart::addSeries(const QString& name, const QColor& colour)
{
    Series s{name, colour, std::vector<double>(static_cast<std::size_t>(m_categories.size()), 0.0),
             std::vector<bool>(static_cast<std::size_t>(m_categories.size()), false)};
    m_series.push_back(std::move(s));
    update();
    return static_cast<int>(m_series.size()) - 1;
}

int BarChart::setValue(int series, const QString& category, double value)
{
    int index = static_cast<int>(m_categories.indexOf(category));
    if (index < 0) {
        m_categories.append(category);
        index = static_cast<int>(m_categories.size()) - 1;
        for (Series& s : m_series) {
            s.values.push_back(0.0);
            s.set.push_back(false);
        }
    }
    if (series >= 0 && series < seriesCount()) {
        Series& s = m_series[static_cast<std::size_t>(series)];
        s.values[static_cast<std::size_t>(index)] = value;
        s.set[static_cast<std::size_t>(index)] = true;
    }
    update();
    return index;
}

void BarChart::clear()
{
    m_series.clear();
    m_categories.clear();
    update();
}

void BarChart::setAxisLabels(const QString& valueAxis, const QString& categoryAxis)
{
    m_valueLabel = valueAxis;
    m_categoryLabel = categoryAxis;
    update();
}

double BarChart::value(int series, int category) const
{
    if (series < 0 || series >= seriesCount() || category < 0 || category >= m_categories.size())
        return 0.0;
    return m_series[static_cast<std::size_t>(series)].values[static_cast<std::size_t>(category)];
}

bool BarChart::isEmpty() const
{
    for (const Series& s : m_series)
        if (std::find(s.set.begin(), s.set.end(), true) != s.set.end())
            return false;
    return true;
}

void BarChart::paintTo(QPainter& painter, const QRect& area) const
{
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
    for (const Series& s : m_series) {
        painter.fillRect(QRect(legendX, legendY + 2, 12, line - 4), s.colour);
        painter.drawText(QPoint(legendX + 16, legendY + fm.ascent()), s.name);
        legendX += 16 + fm.horizontalAdvance(s.name) + 20;
    }

    double maximum = 0;
    for (const Series& s : m_series)
        for (double v : s.values)
            maximum = std::max(maximum, v);
    const double step = niceStep(maximum);
    const double top = std::max(step, std::ceil(maximum / step) * step);

    const int axisWidth = fm.horizontalAdvance(QString::number(top)) + 28;
    const QRect plot(area.left() + axisWidth, legendY + line + 8, area.width() - axisWidth - 12,
                     area.height() - (legendY - area.top()) - 4 * line - 20);
    if (plot.width() <= 0 || plot.height() <= 0)
        return;

    // Value axis with grid lines and its label.
    for (double v = 0; v <= top + step / 2; v += step) {
        const int y = plot.bottom() - static_cast<int>(v / top * plot.height());
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

    const int categoryCount = static_cast<int>(m_categories.size());
    if (categoryCount == 0 || m_series.empty())
        return;
    const double slot = static_cast<double>(plot.width()) / categoryCount;
    const double barWidth = slot * 0.8 / static_cast<double>(m_series.size());
    // Labels wider than their slot are staggered over two lines instead of being cut short.
    bool stagger = false;
    for (const QString& c : m_categories)
        stagger = stagger || fm.horizontalAdvance(c) > static_cast<int>(slot) - 2;
    for (int c = 0; c < categoryCount; ++c) {
        const double slotLeft = plot.left() + c * slot + slot * 0.1;
        for (std::size_t s = 0; s < m_series.size(); ++s) {
            const double v = m_series[s].values[static_cast<std::size_t>(c)];
            const int h = static_cast<int>(v / top * plot.height());
            painter.fillRect(QRectF(slotLeft + static_cast<double>(s) * barWidth, plot.bottom() - h,
                                    barWidth - 1, h),
                             m_series[s].colour);
        }
        painter.setPen(Qt::black);
        const int labelWidth = static_cast<int>(stagger ? 2 * slot : slot);
        const QRect labelRect(plot.left() + static_cast<int>((c + 0.5) * slot) - labelWidth / 2,
                              plot.bottom() + 4 + (stagger && c % 2 ? line : 0), labelWidth, line);
        painter.drawText(labelRect, Qt::AlignCenter,
                         fm.elidedText(m_categories[c], Qt::ElideRight, labelRect.width()));
    }
    painter.drawText(
        QRect(plot.left(), plot.bottom() + (stagger ? 2 : 1) * line + 6, plot.width(), line),
        Qt::AlignCenter, m_categoryLabel);
}

void BarChart::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    paintTo(p, rect());
}

} // namespace velmora::food
