#include "charts/data/BarValues.h"

#include <algorithm>
#include <cmath>

namespace velmora::charts {

int BarValues::addSeries(std::string name)
{
    const std::size_t n = m_categories.size();
    m_series.push_back({std::move(name), std::vector<double>(n, 0.0), std::vector<bool>(n, false)});
    return seriesCount() - 1;
}

int BarValues::setValue(int series, const std::string& category, double value)
{
    auto found = std::find(m_categories.begin(), m_categories.end(), category);
    const int c = static_cast<int>(found - m_categories.begin());
    if (found == m_categories.end()) {
        m_categories.push_back(category);
        for (Series& s : m_series) {
            s.values.push_back(0.0);
            s.set.push_back(false);
        }
    }
    if (series >= 0 && series < seriesCount()) {
        Series& s = m_series[index(series)];
        s.values[index(c)] = value;
        s.set[index(c)] = true;
    }
    return c;
}

void BarValues::clear()
{
    m_series.clear();
    m_categories.clear();
}

double BarValues::value(int series, int category) const
{
    if (series < 0 || series >= seriesCount() || category < 0 || category >= categoryCount())
        return 0.0;
    return m_series[index(series)].values[index(category)];
}

bool BarValues::isEmpty() const
{
    return std::none_of(m_series.begin(), m_series.end(), [](const Series& s) {
        return std::find(s.set.begin(), s.set.end(), true) != s.set.end();
    });
}

double BarValues::maximum() const
{
    double top = 0;
    for (const Series& s : m_series)
        for (double v : s.values)
            top = std::max(top, v);
    return top;
}

BarAxis barAxis(double maximum)
{
    if (!(maximum > 0))
        return {};
    const double raw = maximum / 5;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    double step = 10 * power;
    for (double m : {1.0, 2.0, 5.0, 10.0}) {
        if (raw <= m * power) {
            step = m * power;
            break;
        }
    }
    return {step, std::max(step, std::ceil(maximum / step) * step)};
}

} // namespace velmora::charts
