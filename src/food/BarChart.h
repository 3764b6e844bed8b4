#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <vector>

class QPainter;

namespace velmora::food {

// A grouped bar chart: named series, one bar of each series per category, a value axis starting
// at 0 and a title. Used for the protein quality comparison.
class BarChart : public QWidget
{
    Q_OBJECT

public:
    explicit BarChart(QWidget* parent = nullptr);

    // Adds a series and returns its index.
    int addSeries(const QString& name, const QColor& colour);
    // Sets a series' value at a category, adding the category by name when it is new; returns the
    // category's index.
    int setValue(int series, const QString& category, double value);
    void clear(); // series and categories
    void setTitle(const QString& title)
    {
        m_title = title;
        update();
    }
    void setAxisLabels(const QString& valueAxis, const QString& categoryAxis);

    QString title() const { return m_title; }
    QString valueAxisLabel() const { return m_valueLabel; }
    QString categoryAxisLabel() const { return m_categoryLabel; }
    const QStringList& categories() const { return m_categories; }
    int seriesCount() const { return static_cast<int>(m_series.size()); }
    QString seriesName(int s) const { return m_series[static_cast<std::size_t>(s)].name; }
    // The value of a series at a category; 0 where none was set.
    double value(int series, int category) const;
    // True when no series holds a value.
    bool isEmpty() const;

    void paintTo(QPainter& painter, const QRect& area) const;

    QSize sizeHint() const override { return {520, 260}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Series
    {
        QString name;
        QColor colour;
        std::vector<double> values; // per category
        std::vector<bool> set;
    };

    QString m_title;
    QString m_valueLabel;
    QString m_categoryLabel;
    QStringList m_categories;
    std::vector<Series> m_series;
};

} // namespace velmora::food
