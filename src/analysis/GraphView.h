#pragma once

#include <vector>

#include <QChartView>
#include <QColor>

#include "analysis/logic/GraphSeries.h"

class QAbstractAxis;
class QLineSeries;
class QPainter;

namespace velmora::analysis {

// The graph of the graphs page: a date axis across, and any number of curves, each with a Y axis
// of its own drawn in the curve's colour (or sharing the scale of the curve before it). Curve 0 is
// the base curve of the date range: never drawn, it fixes the X range.
class GraphView : public QChartView
{
    Q_OBJECT

public:
    explicit GraphView(QWidget* parent = nullptr);

    // Removes every curve and axis, then lays down the base curve: the X axis "Date" from its
    // first day to the day after its last, and a first Y axis in the base curve's colour.
    void reset(const Series& base);
    // Adds a curve in the given colour and returns its index (1 for the first after the base).
    int addCurve(const Series& series, const QColor& colour);
    // The number of curves, the base curve included (0 before the first reset).
    int curveCount() const { return static_cast<int>(m_curves.size()); }
    QLineSeries* curve(int index) const;
    QAbstractAxis* xAxis() const { return m_xAxis; }
    QAbstractAxis* yAxis(int index) const;

    void setLegendShown(bool shown);
    // Paints the whole chart scaled into target, on any painter (screen, printer, PDF).
    void paintChart(QPainter& painter, const QRectF& target);

    // The colour of the n-th curve added after the base (n from 0).
    static QColor curveColour(int n);

private:
    struct Curve
    {
        QLineSeries* series = nullptr;
        QAbstractAxis* axis = nullptr;
        double low = 0.0; // the axis range the curve needs
        double high = 0.0;
    };
    std::vector<Curve> m_curves;
    QAbstractAxis* m_xAxis = nullptr;
    int m_leftAxes = 0;
    int m_rightAxes = 0;
};

// A strftime-style format of the graphs ("%m/%d ", "%I:%M:%S%p", ...) as a Qt date-time format.
QString qtTimeFormat(const char* strftimeFormat);

} // namespace velmora::analysis
