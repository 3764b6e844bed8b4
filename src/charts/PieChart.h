#pragma once

#include <QWidget>

#include "charts/Pie.h"

namespace velmora::charts {

// The pie as a control: it keeps a Pie and paints it at its own size, through a buffer so that a
// repaint never flickers.
class PieChart : public QWidget
{
    Q_OBJECT

public:
    using Slice = Pie::Slice;

    explicit PieChart(QWidget* parent = nullptr);

    // See Pie::addSlice; always true.
    bool addSlice(const QColor& colour, int value, double amount, const QString& label,
                  bool isPercent);
    void removeAllSlices();
    void setTitle(const QString& title);

    const Pie& pie() const { return m_pie; }
    QString title() const { return m_pie.title(); }
    const std::vector<Slice>& slices() const { return m_pie.slices(); }
    int startAngle() const { return m_pie.startAngle(); }

    // The layout at the control's current size.
    PieRect pieSquare() const { return m_pie.square(rect()); }
    std::vector<PieSliceLayout> sliceLayout() const { return m_pie.layout(rect()); }

    // Draws the control onto any painter, in a rectangle of the control's size.
    void paintTo(QPainter& painter) const { m_pie.paint(painter, rect(), palette()); }

    QSize sizeHint() const override { return {220, 180}; }
    QSize minimumSizeHint() const override { return {120, 90}; }

    static QColor discColour() { return Pie::discColour(); }
    static QFont titleFont() { return Pie::titleFont(); }
    static QFont legendFont() { return Pie::legendFont(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Pie m_pie;
};

} // namespace velmora::charts
