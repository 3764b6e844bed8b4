#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

#include <vector>

#include "charts/data/PieGeometry.h"

class QPainter;
class QPalette;

namespace velmora::charts {

// A pie of coloured slices with an optional title above it, a legend of labelled colour boxes on
// the right and the percentage written inside every slice of more than 25 degrees. Slices run
// clockwise from twelve o'clock. It paints onto any painter in any rectangle, so the screen, a
// print preview, a printer and a PDF share one drawing.
class Pie
{
public:
    struct Slice
    {
        QColor colour;
        int value = 0; // kept for the caller, never drawn
        int angle = 0; // whole degrees
        QString label; // legend text
    };

    // Adds a slice; with isPercent the amount is a percentage (x 3.6 gives degrees). Angles above
    // 359 become 358 and are then truncated to whole degrees.
    void addSlice(const QColor& colour, int value, double amount, const QString& label,
                  bool isPercent);
    void removeAllSlices() { m_slices.clear(); }
    void setTitle(const QString& title) { m_title = title; }

    const QString& title() const { return m_title; }
    const std::vector<Slice>& slices() const { return m_slices; }
    int startAngle() const { return m_startAngle; }

    // The square of the disc and the slices' layout when drawn in area.
    PieRect square(const QRect& area) const;
    std::vector<PieSliceLayout> layout(const QRect& area) const;

    // Where the legend and the title go in area: the legend's rows from the top right corner, the
    // title on the rest of the title's line, so that the two never overlap.
    QRect legendRect(const QRect& area) const;
    QRect titleRect(const QRect& area) const;

    // Fills area with the palette's window colour and draws the pie, its title and legend in it.
    void paint(QPainter& painter, const QRect& area, const QPalette& palette) const;

    static QColor discColour() { return QColor(0x80, 0x80, 0x80); }
    static QFont titleFont();
    static QFont legendFont();

private:
    int titleHeight() const;

    QString m_title;
    int m_startAngle = 0;
    std::vector<Slice> m_slices;
};

} // namespace velmora::charts
