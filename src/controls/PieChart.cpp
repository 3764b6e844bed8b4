#include "controls/PieChart.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>

namespace velmora::controls {

namespace {
constexpr int LegendRowHeight = 17;
constexpr int LegendBox = 11;
constexpr int LegendGap = 4;

food::PieRect toPieRect(const QRect& r)
{
    return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()};
}

QPoint toQPoint(food::PiePoint p)
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

PieChart::PieChart(QWidget* parent) : QWidget(parent)
{
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QFont PieChart::titleFont()
{
    QFont f(QStringLiteral("Arial"));
    f.setPixelSize(15);
    f.setWeight(QFont::Normal);
    return f;
}

QFont PieChart::legendFont()
{
    QFont f(QStringLiteral("Arial"));
    f.setPixelSize(13);
    f.setWeight(QFont::Normal);
    return f;
}

bool PieChart::addSlice(const QColor& colour, int value, double amount, const QString& label,
                        bool isPercent)
{
    m_slices.push_back({colour, value, food::pieSliceAngle(amount, isPercent), label});
    update();
    return true;
}

void PieChart::removeAllSlices()
{
    m_slices.clear();
    update();
}

void PieChart::setTitle(const QString& title)
{
    m_title = title;
    update();
}

int PieChart::titleHeight() const
{
    if (m_title.isEmpty())
        return 0;
    return QFontMetrics(titleFont()).boundingRect(m_title).height();
}

food::PieRect PieChart::pieSquare() const
{
    return food::pieSquare(toPieRect(rect()), titleHeight());
}

std::vector<food::PieSliceLayout> PieChart::sliceLayout() const
{
    std::vector<int> angles;
    angles.reserve(m_slices.size());
    for (const Slice& s : m_slices)
        angles.push_back(s.angle);
    return food::layoutPieSlices(pieSquare(), angles, m_startAngle);
}

void PieChart::paintTo(QPainter& painter) const
{
    const QRect client = rect();
    painter.fillRect(client, palette().color(QPalette::Window));

    const food::PieRect square = pieSquare();
    const int side = square.width();

    if (!m_title.isEmpty()) {
        painter.setFont(titleFont());
        painter.setPen(palette().color(QPalette::WindowText));
        const QRect area(client.left(), client.top(), client.width() - food::PieLegendStrip,
                         titleHeight());
        // A title wider than the room starts at the left edge instead of being centred off it.
        const int flags = QFontMetrics(titleFont()).horizontalAdvance(m_title) > area.width()
                              ? Qt::AlignLeft | Qt::AlignVCenter
                              : Qt::AlignHCenter | Qt::AlignVCenter;
        painter.drawText(area, flags, m_title);
    }

    if (side > 0) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        const QRect disc(square.left, square.top, side, side);
        painter.setPen(Qt::NoPen);
        painter.setBrush(discColour());
        painter.drawEllipse(disc);

        const std::vector<food::PieSliceLayout> layout = sliceLayout();
        for (std::size_t i = 0; i < layout.size(); ++i) {
            if (!layout[i].drawSector)
                continue;
            painter.setBrush(m_slices[i].colour);
            painter.drawPie(disc, layout[i].arc.start16, layout[i].arc.span16);
        }

        painter.setFont(legendFont());
        painter.setPen(Qt::white);
        const QFontMetrics fm(legendFont());
        for (const food::PieSliceLayout& s : layout) {
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
        const QRect row(client.left(), client.top() + static_cast<int>(i) * LegendRowHeight,
                        client.width() - 2, LegendRowHeight);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, m_slices[i].label);
        const int textLeft = row.right() - fm.horizontalAdvance(m_slices[i].label);
        const QRect box(textLeft - LegendGap - LegendBox,
                        row.top() + (LegendRowHeight - LegendBox) / 2, LegendBox, LegendBox);
        drawSunkenBox(painter, box, m_slices[i].colour, palette());
    }
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

} // namespace velmora::controls
