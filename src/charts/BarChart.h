#pragma once

#include <QWidget>

#include "charts/Bars.h"

namespace velmora::charts {

// The grouped bar chart as a control; it paints its Bars at its own size.
class BarChart : public QWidget
{
    Q_OBJECT

public:
    explicit BarChart(QWidget* parent = nullptr);

    // See Bars.
    int addSeries(const QString& name, const QColor& colour);
    int setValue(int series, const QString& category, double value);
    void clear();
    void setTitle(const QString& title);
    void setAxisLabels(const QString& valueAxis, const QString& categoryAxis);

    const Bars& bars() const { return m_bars; }
    QString title() const { return m_bars.title(); }
    QString valueAxisLabel() const { return m_bars.valueAxisLabel(); }
    QString categoryAxisLabel() const { return m_bars.categoryAxisLabel(); }
    QStringList categories() const { return m_bars.categories(); }
    int seriesCount() const { return m_bars.values().seriesCount(); }
    QString seriesName(int s) const { return m_bars.seriesName(s); }
    // The value of a series at a category; 0 where none was set.
    double value(int series, int category) const { return m_bars.values().value(series, category); }
    // True when no series holds a value.
    bool isEmpty() const { return m_bars.values().isEmpty(); }

    QSize sizeHint() const override { return {520, 260}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Bars m_bars;
};

} // namespace velmora::charts
