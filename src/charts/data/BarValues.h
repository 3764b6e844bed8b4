#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmora::charts {

// The values of a grouped bar chart: named series, one value of each series per category. Texts
// are UTF-8. Kept apart from any drawing so that the screen, the printer and the tests read the
// same numbers.
class BarValues
{
public:
    // Adds a series and returns its index.
    int addSeries(std::string name);
    // Sets a series' value at a category, adding the category by name when it is new; returns the
    // category's index. A series index out of range only adds the category.
    int setValue(int series, const std::string& category, double value);
    void clear();

    int seriesCount() const { return static_cast<int>(m_series.size()); }
    int categoryCount() const { return static_cast<int>(m_categories.size()); }
    const std::string& seriesName(int s) const { return m_series[index(s)].name; }
    const std::vector<std::string>& categories() const { return m_categories; }
    // The value of a series at a category; 0 where none was set or the indexes are out of range.
    double value(int series, int category) const;
    // True when no series holds a value.
    bool isEmpty() const;
    // The largest value of all series, or 0 when there is none above 0.
    double maximum() const;

private:
    static std::size_t index(int i) { return static_cast<std::size_t>(i); }

    struct Series
    {
        std::string name;
        std::vector<double> values; // per category
        std::vector<bool> set;
    };
    std::vector<std::string> m_categories;
    std::vector<Series> m_series;
};

// The value axis of a bar chart: it starts at 0 and runs in round steps to the first step at or
// above the largest value.
struct BarAxis
{
    double step = 1; // 1, 2 or 5 times a power of ten, giving about five grid lines
    double top = 1;  // a whole number of steps, at least one
    bool operator==(const BarAxis&) const = default;
};
// The axis for a largest value (in the chart's own unit); a maximum of 0 or less gives step 1.
BarAxis barAxis(double maximum);

} // namespace velmora::charts
