#include "charts/Pie.h"

#include <algorithm>

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>

namespace velmora::charts {

namespace {
constexpr int LegendRowHeight = 17;
constexpr int LegendBox = 11;
constexpr int LegendGap = 4;

PieRect toPieRect(const QRect& r)
{
    return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()};
}

QPoint toQPoint(PiePoint p)
{
    return {p.x, p.y};
}

// A frame sunken on all four sides, as the legend's colour boxes have.
void drawSunkenBox(QPainter& painter, const QRect& box, const QColor& colour,
                   const QPalette& palette)
{
    painter.fillRect(box, colour);
    painter.setPen(palette.color(QPalette::Dark));
    painter.drawLine(box.topLeft(), box.topRight());
    painter.drawLine(box.topLeft(), box.bottomLeft());
    painter.setPen(palette.color(QPalette::Light));
    painter.drawLine(box.bottomLeft(), box.bottomRight());
    painter.drawLine(box.topRight(), box.bottomRight());
}
} // namespace

QFont Pie::titleFont()
{
    QFont f(QStringLiteral("Arial"));
    f.setPixelSize(15);
    f.setWeight(QFont::Normal);
    return f;
}

QFont Pie::legendFont()
{
    QFont f(QStringLiteral("Arial"));
    f.setPixelSize(13);
    f.setWeight(QFont::Normal);
    return f;
}

void Pie::addSlice(const QColor& colour, int value, double amount, const QString& label,
                   bool isPercent)
{
    m_slices.push_back({colour, value, pieSliceAngle(amount, isPercent), label});
}

int Pie::titleHeight() const
{
    if (m_title.isEmpty())
        return 0;
    return QFontMetrics(titleFont()).boundingRect(m_title).height();
}

PieRect Pie::square(const QRect& area) const
{
    return pieSquare(toPieRect(area), titleHeight());
}

std::vector<PieSliceLayout> Pie::layout(const QRect& area) const
{
    std::vector<int> angles;
    angles.reserve(m_slices.size());
    for (const Slice& s : m_slices)
        angles.push_back(s.angle);
    return layoutPieSlices(square(area), angles, m_startAngle);
}

QRect Pie::legendRect(const QRect& area) const
{
    const QFontMetrics fm(legendFont());
    int width = 0;
    for (const Slice& slice : m_slices)
        width = std::max(width, fm.horizontalAdvance(slice.label) + LegendGap + LegendBox + 2);
    const int rows = static_cast<int>(m_slices.size());
    return QRect(area.right() + 1 - width, area.top(), width, rows * LegendRowHeight);
}

QRect Pie::titleRect(const QRect& area) const
{
    // The title's line leaves room for the legend, at least the strip the layout keeps for it.
    // With a legend as wide as the whole area (large fonts, a narrow chart) there is no room at
    // all: the null rectangle, which draws nothing and meets nothing.
    const int legend = std::max(PieLegendStrip, legendRect(area).width() + LegendGap);
    const int width = area.width() - legend;
    return width > 0 ? QRect(area.left(), area.top(), width, titleHeight()) : QRect();
}

void Pie::paint(QPainter& painter, const QRect& area, const QPalette& palette) const
{
    painter.save();
    painter.fillRect(area, palette.color(QPalette::Window));

    const PieRect sq = square(area);
    const int side = sq.width();

    if (!m_title.isEmpty() && !titleRect(area).isNull()) {
        painter.setFont(titleFont());
        painter.setPen(palette.color(QPalette::WindowText));
        const QRect titleArea = titleRect(area);
        // A title wider than the room starts at the left edge and is cut short with an ellipsis
        // rather than running under the legend.
        const QFontMetrics tm(titleFont());
        const bool fits = tm.horizontalAdvance(m_title) <= titleArea.width();
        const int flags =
            fits ? Qt::AlignHCenter | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter;
        painter.setClipRect(titleArea);
        painter.drawText(titleArea, flags,
                         fits ? m_title
                              : tm.elidedText(m_title, Qt::ElideRight, titleArea.width()));
        painter.setClipping(false);
    }

    if (side > 0) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        const QRect disc(sq.left, sq.top, side, side);
        painter.setPen(Qt::NoPen);
        painter.setBrush(discColour());
        painter.drawEllipse(disc);

        const std::vector<PieSliceLayout> slices = layout(area);
        for (std::size_t i = 0; i < slices.size(); ++i) {
            if (!slices[i].drawSector)
                continue;
            painter.setBrush(m_slices[i].colour);
            painter.drawPie(disc, slices[i].arc.start16, slices[i].arc.span16);
        }

        painter.setFont(legendFont());
        painter.setPen(Qt::white);
        const QFontMetrics fm(legendFont());
        for (const PieSliceLayout& s : slices) {
            if (s.label.empty())
                continue;
            const QString text = QString::fromStdString(s.label);
            QRect box = fm.boundingRect(text);
            box.moveCenter(toQPoint(s.labelPoint));
            painter.drawText(box, Qt::AlignCenter, text);
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    // Legend rows from the top right corner: label right-aligned against the edge, colour box to
    // its left.
    painter.setFont(legendFont());
    const QFontMetrics fm(legendFont());
    for (std::size_t i = 0; i < m_slices.size(); ++i) {
        const QRect row(area.left(), area.top() + static_cast<int>(i) * LegendRowHeight,
                        area.width() - 2, LegendRowHeight);
        painter.setPen(palette.color(QPalette::WindowText));
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, m_slices[i].label);
        const int textLeft = row.right() - fm.horizontalAdvance(m_slices[i].label);
        const QRect box(textLeft - LegendGap - LegendBox,
                        row.top() + (LegendRowHeight - LegendBox) / 2, LegendBox, LegendBox);
        drawSunkenBox(painter, box, m_slices[i].colour, palette);
    }
    painter.restore();
}

} // namespace velmora::charts
