#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

#include <vector>

#include "food/logic/PieGeometry.h"

class QPainter;

namespace velmora::controls {

// A pie of coloured slices with an optional title above it, a legend of labelled colour boxes on
// the right and the percentage written inside every slice of more than 25 degrees. Slices run
// clockwise from twelve o'clock; the geometry comes from food/logic/PieGeometry.
class PieChart : public QWidget
{
    Q_OBJECT

public:
    struct Slice
    {
        QColor colour;
        int value = 0; // kept for the caller, never drawn
        int angle = 0; // whole degrees
        QString label; // legend text
    };

    explicit PieChart(QWidget* parent = nullptr);

    // Adds a slice; with isPercent the amount is a percentage (x 3.6 gives degrees). Angles above
    // 359 become 358 and are then truncated to whole degrees.
    bool addSlice(const QColor& colour, int value, double amount, const QString& label,
                  bool isPercent);
    void removeAllSlices();
    void setTitle(const QString& title);

    QString title() const { return m_title; }
    const std::vector<Slice>& slices() const { return m_slices; }
    int startAngle() const { return m_startAngle; }

    // The layout of the current size (the square of the disc and the slices).
    food::PieRect pieSquare() const;
    std::vector<food::PieSliceLayout> sliceLayout() const;

    // Draws the whole control onto any painter, in a rectangle of the control's size.
    void paintTo(QPainter& painter) const;

    QSize sizeHint() const override { return {220, 180}; }
    QSize minimumSizeHint() const override { return {120, 90}; }

    static QColor discColour() { return QColor(0x80, 0x80, 0x80); }
    static QFont titleFont();
    static QFont legendFont();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int titleHeight() const;

    QString m_title;
    int m_startAngle = 0;
    std::vector<Slice> m_slices;
};

} // namespace velmora::controls
