#include "analysis/GraphView.h"

#include <algorithm>

#include <QChart>
#include <QDateTime>
#include <QDateTimeAxis>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPainter>
#include <QValueAxis>

namespace velmora::analysis {

namespace {

const QColor BaseColour(0, 0, 0);

// Chart X values are milliseconds since the epoch.
double dateValue(model::TimeT t)
{
    return static_cast<double>(t) * 1000.0;
}

// A time of day (seconds since midnight) as a point on a local day, for a time axis.
double timeValue(double seconds)
{
    const QDateTime midnight(QDate(2000, 1, 1), QTime(0, 0));
    return static_cast<double>(midnight.toMSecsSinceEpoch()) + seconds * 1000.0;
}

void colourAxis(QAbstractAxis* axis, const QColor& colour)
{
    axis->setLinePenColor(colour);
    axis->setLabelsColor(colour);
    axis->setTitleBrush(colour);
}

} // namespace

QString qtTimeFormat(const char* strftimeFormat)
{
    QString out;
    const QString in = QString::fromLatin1(strftimeFormat);
    const bool twelveHour = in.contains(QStringLiteral("%p"));
    for (qsizetype i = 0; i < in.size(); ++i) {
        if (in[i] != QLatin1Char('%') || i + 1 == in.size()) {
            out += in[i];
            continue;
        }
        switch (in[++i].toLatin1()) {
        case 'm':
            out += QStringLiteral("MM");
            break;
        case 'd':
            out += QStringLiteral("dd");
            break;
        case 'Y':
            out += QStringLiteral("yyyy");
            break;
        case 'H':
            out += QStringLiteral("HH");
            break;
        case 'I':
            out += twelveHour ? QStringLiteral("hh") : QStringLiteral("HH");
            break;
        case 'M':
            out += QStringLiteral("mm");
            break;
        case 'S':
            out += QStringLiteral("ss");
            break;
        case 'p':
            out += QStringLiteral("AP");
            break;
        default:
            out += in[i];
            break;
        }
    }
    return out;
}

GraphView::GraphView(QWidget* parent) : QChartView(new QChart, parent)
{
    setRenderHint(QPainter::Antialiasing);
    chart()->setBackgroundBrush(Qt::white);
    chart()->legend()->setAlignment(Qt::AlignBottom);
    chart()->legend()->hide();
}

QColor GraphView::curveColour(int n)
{
    static const std::array<QColor, 8> colours{
        QColor(200, 0, 0),   QColor(0, 140, 0),   QColor(160, 0, 160), QColor(0, 140, 160),
        QColor(230, 120, 0), QColor(100, 60, 20), QColor(120, 120, 0), QColor(90, 90, 200)};
    return colours[static_cast<std::size_t>(n) % colours.size()];
}

void GraphView::reset(const Series& base)
{
    QChart* c = chart();
    c->removeAllSeries();
    for (QAbstractAxis* axis : c->axes()) {
        c->removeAxis(axis);
        delete axis;
    }
    m_curves.clear();
    m_leftAxes = 0;
    m_rightAxes = 0;

    auto* x = new QDateTimeAxis;
    x->setTitleText(QString::fromUtf8(DateAxisLabel));
    x->setFormat(qtTimeFormat(DateAxisFormat));
    if (!base.points.empty()) {
        const double first = dateValue(base.points.front().date);
        // The range runs to the day after the last point, so the last day's data stands inside.
        const double last = dateValue(base.points.back().date) + 86400000.0;
        x->setRange(QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(first)),
                    QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(last)));
        x->setTickCount(std::clamp(static_cast<int>(base.points.size()) + 1, 2, 8));
    }
    c->addAxis(x, Qt::AlignBottom);
    m_xAxis = x;

    auto* line = new QLineSeries;
    for (const SeriesPoint& p : base.points)
        line->append(dateValue(p.date), p.value);
    line->setColor(BaseColour);
    c->addSeries(line);
    auto* y = new QValueAxis;
    y->setRange(0.0, 1.0);
    colourAxis(y, BaseColour);
    c->addAxis(y, Qt::AlignLeft);
    ++m_leftAxes;
    line->attachAxis(x);
    line->attachAxis(y);
    line->setVisible(false);
    for (QLegendMarker* marker : c->legend()->markers(line))
        marker->setVisible(false);
    m_curves.push_back(Curve{line, y, 0.0, 1.0});
}

int GraphView::addCurve(const Series& series, const QColor& colour)
{
    QChart* c = chart();
    const bool time = series.axis == AxisKind::Time;
    auto* line = new QLineSeries;
    line->setName(QString::fromUtf8(series.label));
    line->setColor(colour);
    line->setPointsVisible(true);
    double low = 0.0, high = 0.0;
    for (std::size_t i = 0; i < series.points.size(); ++i) {
        const SeriesPoint& p = series.points[i];
        const double v = time ? timeValue(p.value) : p.value;
        line->append(dateValue(p.date), v);
        low = i == 0 ? v : std::min(low, v);
        high = i == 0 ? v : std::max(high, v);
    }
    c->addSeries(line);
    line->attachAxis(m_xAxis);

    Curve curve{line, nullptr, low, high};
    const bool share = !series.ownAxisShown && m_curves.size() > 1;
    if (share) {
        // The curve takes the scale of the one before it, which widens to hold both.
        Curve& previous = m_curves.back();
        curve.axis = previous.axis;
        curve.low = std::min(previous.low, low);
        curve.high = std::max(previous.high, high);
        for (Curve& other : m_curves)
            if (other.axis == curve.axis) {
                other.low = curve.low;
                other.high = curve.high;
            }
    } else if (time) {
        auto* axis = new QDateTimeAxis;
        axis->setFormat(qtTimeFormat(series.axisFormat));
        curve.axis = axis;
    } else {
        curve.axis = new QValueAxis;
    }

    if (!share) {
        curve.axis->setTitleText(line->name());
        colourAxis(curve.axis, colour);
        // The base's axis gives way to the first curve's; then the sides alternate so that the
        // axes do not crowd one edge.
        if (m_curves.size() == 1 && m_curves.front().axis->isVisible()) {
            m_curves.front().axis->hide();
            --m_leftAxes;
        }
        const bool left = m_leftAxes <= m_rightAxes;
        c->addAxis(curve.axis, left ? Qt::AlignLeft : Qt::AlignRight);
        (left ? m_leftAxes : m_rightAxes) += 1;
        if (!series.ownAxisShown)
            curve.axis->hide();
    }
    line->attachAxis(curve.axis);

    // A margin around the values, and some height for a flat curve.
    double pad = (curve.high - curve.low) * 0.05;
    if (pad == 0.0)
        pad = time ? 3600000.0 : std::max(1.0, std::abs(curve.high) * 0.05);
    if (auto* value = qobject_cast<QValueAxis*>(curve.axis)) {
        value->setRange(curve.low - pad, curve.high + pad);
        value->applyNiceNumbers();
    } else if (auto* dates = qobject_cast<QDateTimeAxis*>(curve.axis)) {
        dates->setRange(QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(curve.low - pad)),
                        QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(curve.high + pad)));
    }
    m_curves.push_back(curve);
    return static_cast<int>(m_curves.size()) - 1;
}

QLineSeries* GraphView::curve(int index) const
{
    if (index < 0 || index >= curveCount())
        return nullptr;
    return m_curves[static_cast<std::size_t>(index)].series;
}

QAbstractAxis* GraphView::yAxis(int index) const
{
    if (index < 0 || index >= curveCount())
        return nullptr;
    return m_curves[static_cast<std::size_t>(index)].axis;
}

void GraphView::setLegendShown(bool shown)
{
    chart()->legend()->setVisible(shown);
}

void GraphView::paintChart(QPainter& painter, const QRectF& target)
{
    // The chart lays itself out at the target's size in screen pixels, then is scaled to fit, so
    // text keeps its proportions on any device.
    QChart* c = chart();
    const QSizeF oldSize = c->size();
    const QRectF page(QPointF(0, 0), QSizeF(1000.0, 1000.0 * target.height() / target.width()));
    c->resize(page.size());
    if (c->layout() != nullptr)
        c->layout()->activate();
    scene()->render(&painter, target, page.translated(c->pos()));
    c->resize(oldSize);
    if (c->layout() != nullptr)
        c->layout()->activate();
}

} // namespace velmora::analysis
