#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

#include "charts/data/BarValues.h"

class QPainter;

namespace velmora::charts {

// A grouped bar chart: named series, one bar of each series per category, a value axis starting
// at 0, a legend under the title and the axis labels. It paints onto any painter in any
// rectangle; the numbers live in a BarValues.
class Bars
{
public:
    // Adds a series and returns its index.
    int addSeries(const QString& name, const QColor& colour);
    // Sets a series' value at a category, adding the category by name when it is new; returns the
    // category's index.
    int setValue(int series, const QString& category, double value);
    void clear(); // series and categories
    void setTitle(const QString& title) { m_title = title; }
    void setAxisLabels(const QString& valueAxis, const QString& categoryAxis);

    const BarValues& values() const { return m_values; }
    const QString& title() const { return m_title; }
    const QString& valueAxisLabel() const { return m_valueLabel; }
    const QString& categoryAxisLabel() const { return m_categoryLabel; }
    QStringList categories() const;
    QString seriesName(int s) const;

    // Fills area with white and draws the chart in it with the painter's font.
    void paint(QPainter& painter, const QRect& area) const;

private:
    QString m_title;
    QString m_valueLabel;
    QString m_categoryLabel;
    BarValues m_values;
    std::vector<QColor> m_colours; // per series
};

} // namespace velmora::charts
