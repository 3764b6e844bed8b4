// The pie chart control as a widget: the rules applied when slices are added, the layout with and
// without a title, and what is painted where (sector direction, the background sliver, the disc).

#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>

#include "charts/PieChart.h"

using velmora::charts::PieChart;

namespace {

// The colour painted at an angle (degrees clockwise from twelve) and a share of the radius.
QColor colourAt(const QImage& image, const velmora::charts::PieRect& square, double degrees,
                double radiusShare)
{
    const double r = square.width() * 0.5 * radiusShare;
    const double t = degrees * M_PI / 180.0;
    const double cx = (square.left + square.right) * 0.5;
    const double cy = (square.top + square.bottom) * 0.5;
    return image.pixelColor(static_cast<int>(std::lround(cx + std::sin(t) * r)),
                            static_cast<int>(std::lround(cy - std::cos(t) * r)));
}

QImage paint(const PieChart& chart)
{
    QImage image(chart.size(), QImage::Format_ARGB32);
    QPainter p(&image);
    chart.paintTo(p);
    return image;
}

} // namespace

class PieChartTest : public QObject
{
    Q_OBJECT

private slots:
    void titleMovesTheSquareDown()
    {
        PieChart chart;
        chart.resize(250, 200);
        QCOMPARE(chart.pieSquare(), (velmora::charts::PieRect{0, 0, 200, 200}));
        chart.setTitle(QStringLiteral("Meal"));
        const int h =
            QFontMetrics(PieChart::titleFont()).boundingRect(QStringLiteral("Meal")).height();
        QVERIFY(h > 0);
        QCOMPARE(chart.pieSquare(), (velmora::charts::PieRect{h, 2 * h, 200 - h, 200}));
    }

    // What is painted where: sectors clockwise from twelve o'clock, the sliver that a full slice
    // leaves, and the disc behind slices of nothing.
    void sectorsRunClockwiseFromTwelve()
    {
        const QColor blue(0, 0, 255), red(255, 0, 0), disc = PieChart::discColour();
        struct Probe
        {
            double degrees, radiusShare;
            QColor colour;
        };
        struct Case
        {
            std::vector<std::pair<QColor, double>> slices; // colour, per cent
            std::vector<Probe> probes;
        };
        const Case cases[] = {
            {{{blue, 25.0}, {red, 25.0}},
             {{45, 0.9, blue}, {135, 0.9, red}, {225, 0.9, disc}, {315, 0.9, disc}}},
            // 358 degrees: the last two, just left of twelve o'clock, show the disc.
            {{{red, 100.0}}, {{10, 0.9, red}, {180, 0.9, red}, {350, 0.9, red}, {359, 0.9, disc}}},
            {{{blue, 0.0}}, {{90, 0.5, disc}, {0, 0.95, disc}}},
        };
        for (const Case& c : cases) {
            PieChart chart;
            chart.resize(450, 400);
            for (const auto& [colour, share] : c.slices)
                chart.addSlice(colour, 0, share, QStringLiteral("Slice"), true);
            const QImage image = paint(chart);
            for (const Probe& p : c.probes)
                QCOMPARE(colourAt(image, chart.pieSquare(), p.degrees, p.radiusShare), p.colour);
        }
    }

    void titleNeverRunsUnderTheLegend();
};

void PieChartTest::titleNeverRunsUnderTheLegend()
{
    velmora::charts::Pie pie;
    pie.addSlice(Qt::blue, 203, 20, QStringLiteral("Protein"), true);
    pie.addSlice(Qt::green, 205, 50, QStringLiteral("Carboyhydrates"), true);
    pie.addSlice(Qt::red, 204, 30, QStringLiteral("Fat"), true);
    const QFontMetrics legend(velmora::charts::Pie::legendFont());
    for (const QString& title : {QStringLiteral("Meal"), QStringLiteral("11/22/2026"),
                                 QStringLiteral("Highlighted Food")}) {
        pie.setTitle(title);
        for (int width : {120, 180, 240, 400}) {
            const QRect area(10, 20, width, 200);
            const QRect legendArea = pie.legendRect(area);
            const QRect titleArea = pie.titleRect(area);
            QVERIFY2(!titleArea.intersects(legendArea),
                     qPrintable(QStringLiteral("%1 at %2").arg(title).arg(width)));
            QVERIFY(legendArea.width() >=
                    legend.horizontalAdvance(QStringLiteral("Carboyhydrates")));
            QCOMPARE(legendArea.right(), area.right());

            // Painted: nothing of the title lands on the legend's colour boxes or text.
            QImage plain(area.right() + 1, area.bottom() + 1, QImage::Format_ARGB32);
            QImage titled = plain;
            velmora::charts::Pie untitled = pie; // a blank title keeps the disc where it is
            untitled.setTitle(QStringLiteral(" "));
            QCOMPARE(untitled.square(area), pie.square(area));
            QPalette palette;
            {
                QPainter p(&plain);
                untitled.paint(p, area, palette);
            }
            {
                QPainter p(&titled);
                pie.paint(p, area, palette);
            }
            for (int y = legendArea.top(); y <= std::min(legendArea.bottom(), titleArea.bottom());
                 ++y)
                for (int x = legendArea.left(); x <= legendArea.right(); ++x)
                    QCOMPARE(titled.pixel(x, y), plain.pixel(x, y));
        }
    }
}

QTEST_MAIN(PieChartTest)
#include "test_pie_chart.moc"
