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
    void slicesFollowTheAngleRules();
    void titleMovesTheSquareDown();
    void sectorsRunClockwiseFromTwelve();
    void fullSliceLeavesABackgroundSliver();
    void fontsAndDisc();
    void titleNeverRunsUnderTheLegend();
};

void PieChartTest::slicesFollowTheAngleRules()
{
    PieChart chart;
    chart.addSlice(Qt::red, 102, 100.0, QStringLiteral("All"), true);
    chart.addSlice(Qt::green, 101, 359.0, QStringLiteral("Degrees"), false);
    chart.addSlice(Qt::blue, 100, 359.5, QStringLiteral("Over"), false);
    chart.addSlice(Qt::blue, 100, 50.1, QStringLiteral("Half"), true);
    QCOMPARE(chart.slices().size(), std::size_t(4));
    QCOMPARE(chart.slices()[0].angle, 358);
    QCOMPARE(chart.slices()[1].angle, 359);
    QCOMPARE(chart.slices()[2].angle, 358);
    QCOMPARE(chart.slices()[3].angle, 180);
    QCOMPARE(chart.slices()[0].value, 102);
    chart.removeAllSlices();
    QVERIFY(chart.slices().empty());
}

void PieChartTest::titleMovesTheSquareDown()
{
    PieChart chart;
    chart.resize(250, 200);
    QCOMPARE(chart.pieSquare(), (velmora::charts::PieRect{0, 0, 200, 200}));
    chart.setTitle(QStringLiteral("Meal"));
    const int h = QFontMetrics(PieChart::titleFont()).boundingRect(QStringLiteral("Meal")).height();
    QVERIFY(h > 0);
    const velmora::charts::PieRect square = chart.pieSquare();
    QCOMPARE(square.top, 2 * h);
    QCOMPARE(square.bottom, 200);
    QCOMPARE(square.width(), 200 - 2 * h);
    chart.setTitle(QString());
    QCOMPARE(chart.pieSquare(), (velmora::charts::PieRect{0, 0, 200, 200}));
}

void PieChartTest::sectorsRunClockwiseFromTwelve()
{
    PieChart chart;
    chart.resize(450, 400);
    chart.addSlice(QColor(0, 0, 255), 0, 25.0, QStringLiteral("Quarter"), true); // 0..90
    chart.addSlice(QColor(255, 0, 0), 0, 25.0, QStringLiteral("Next"), true);    // 90..180
    const QImage image = paint(chart);
    const velmora::charts::PieRect square = chart.pieSquare();
    QCOMPARE(colourAt(image, square, 45, 0.9), QColor(0, 0, 255));       // upper right
    QCOMPARE(colourAt(image, square, 135, 0.9), QColor(255, 0, 0));      // lower right
    QCOMPARE(colourAt(image, square, 225, 0.9), PieChart::discColour()); // lower left: background
    QCOMPARE(colourAt(image, square, 315, 0.9), PieChart::discColour()); // upper left
}

void PieChartTest::fullSliceLeavesABackgroundSliver()
{
    PieChart chart;
    chart.resize(450, 400);
    chart.addSlice(QColor(255, 0, 0), 0, 100.0, QStringLiteral("All"), true);
    const QImage image = paint(chart);
    const velmora::charts::PieRect square = chart.pieSquare();
    QCOMPARE(colourAt(image, square, 10, 0.9), QColor(255, 0, 0));
    QCOMPARE(colourAt(image, square, 180, 0.9), QColor(255, 0, 0));
    QCOMPARE(colourAt(image, square, 350, 0.9), QColor(255, 0, 0));
    // 358 degrees: the last two, just left of twelve o'clock, show the disc.
    QCOMPARE(colourAt(image, square, 359, 0.9), PieChart::discColour());
}

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

void PieChartTest::fontsAndDisc()
{
    QCOMPARE(PieChart::titleFont().family(), QStringLiteral("Arial"));
    QCOMPARE(PieChart::titleFont().pixelSize(), 15);
    QCOMPARE(PieChart::legendFont().pixelSize(), 13);
    QCOMPARE(PieChart::discColour(), QColor(0x80, 0x80, 0x80));
    PieChart chart;
    chart.resize(300, 250);
    chart.addSlice(Qt::blue, 0, 0.0, QStringLiteral("Nothing"), true);
    const QImage image = paint(chart);
    // A slice of 0 degrees leaves the whole disc in the background colour.
    QCOMPARE(colourAt(image, chart.pieSquare(), 90, 0.5), PieChart::discColour());
    QCOMPARE(colourAt(image, chart.pieSquare(), 0, 0.95), PieChart::discColour());
}

QTEST_MAIN(PieChartTest)
#include "test_pie_chart.moc"
