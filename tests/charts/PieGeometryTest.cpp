// The pie chart's arithmetic: slice angles, layout, rim points, labels and the sector handed to
// QPainter::drawPie, checked without painting.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "charts/data/PieGeometry.h"

using namespace velmora::charts;

namespace {

struct AngleCase
{
    double amount;
    bool percent;
    int expected;
};

TEST(PieGeometry, SliceAnglesFollowThe358RuleAndTruncate)
{
    const AngleCase cases[] = {
        {100.0, true, 358},  // 360 degrees would close the disc: 358 leaves a sliver
        {359.0, false, 359}, // exactly 359 stays
        {359.5, false, 358}, // just above the limit becomes 358, not 359
        {99.8, true, 358},   // 359.28 degrees is above 359 as well
        {99.7, true, 358},   // 358.92 degrees truncates to 358
        {50.1, true, 180},   // 180.36 degrees truncates to 180
        {0.0, true, 0},
        {25.9, false, 25},
        {7.5, true, 27}, // 27.0
        {std::numeric_limits<double>::quiet_NaN(), true, 0},
    };
    for (const AngleCase& c : cases)
        EXPECT_EQ(pieSliceAngle(c.amount, c.percent), c.expected)
            << c.amount << (c.percent ? " %" : " degrees");
}

TEST(PieGeometry, PercentageLabelsOnlyAbove25Degrees)
{
    EXPECT_EQ(pieLabelText(25), "");
    EXPECT_EQ(pieLabelText(0), "");
    EXPECT_EQ(pieLabelText(26), "7%");   // 7.22
    EXPECT_EQ(pieLabelText(180), "50%"); // 50.1 per cent shows 50
    EXPECT_EQ(pieLabelText(358), "99%"); // a 100 per cent slice shows 99.44 rounded
    EXPECT_EQ(pieLabelText(34), "9%");   // 9.44
}

struct SquareCase
{
    PieRect client;
    int titleHeight;
    PieRect expected;
};

TEST(PieGeometry, SquareIsCentredBottomAlignedWithIntegerDivision)
{
    const SquareCase cases[] = {
        // No title: the square is as large as the control less the legend strip allows.
        {{0, 0, 250, 200}, 0, {0, 0, 200, 200}},
        // A title takes twice its height from the top.
        {{0, 0, 250, 200}, 15, {15, 30, 185, 200}},
        // Wide control: centred in the remaining width, (211 - 95 - 10) / 2 + 10 = 63.
        {{10, 5, 261, 100}, 0, {63, 5, 158, 100}},
        // Tall control: bottom-aligned.
        {{0, 0, 150, 300}, 0, {0, 200, 100, 300}},
        // Odd remaining width: the division truncates, (101 - 60) / 2 = 20.
        {{0, 0, 151, 60}, 0, {20, 0, 80, 60}},
    };
    for (const SquareCase& c : cases) {
        const PieRect r = pieSquare(c.client, c.titleHeight);
        EXPECT_EQ(r, c.expected) << "got " << r.left << "," << r.top << "," << r.right << ","
                                 << r.bottom;
        EXPECT_EQ(r.width(), r.height());
    }
}

struct RimCase
{
    int angle;
    bool label;
    PiePoint expected;
};

TEST(PieGeometry, RimPointsRunClockwiseFromTwelveAndTruncateTowardZero)
{
    // A square centred on the origin makes truncation toward zero differ from rounding down.
    const PieRect square{-100, -100, 100, 100};
    const RimCase cases[] = {
        {0, false, {0, -100}},   // twelve o'clock
        {90, false, {100, 0}},   // three o'clock: y is -0.0000000045, truncated to 0 (not -1)
        {180, false, {0, 100}},  // six o'clock
        {270, false, {-100, 0}}, // nine o'clock
        {-90, false, {-100, 0}}, // negative angles are raised by whole turns
        {450, false, {100, 0}},  // above 359 reduced modulo 360
        {360, false, {0, -100}}, {-720, false, {0, -100}},
        {90, true, {60, 0}},     // label points sit at 0.6 of the radius
        {45, false, {70, -70}},  // 70.71 both ways
        {225, false, {-70, 70}}, // -70.71 truncates toward zero to -70, not down to -71
        {300, true, {-51, -29}}, // -51.96 and -30 + a hair: both toward zero
    };
    for (const RimCase& c : cases) {
        const PiePoint p = pieRimPoint(square, c.angle, c.label);
        EXPECT_EQ(p, c.expected) << "angle " << c.angle << " got " << p.x << "," << p.y;
    }
    // On a square in screen coordinates the centre is (left + right) / 2.
    EXPECT_EQ(pieRimPoint({0, 0, 200, 200}, 90, false), (PiePoint{200, 99}));
    EXPECT_EQ(pieRimPoint({0, 0, 200, 200}, 0, false), (PiePoint{100, 0}));
}

TEST(PieGeometry, QtArcOfAQuarterAndOfAFullSlice)
{
    const PieRect square{0, 0, 200, 200};
    // 0..90 degrees: from (100,0) at twelve to (200,99) just above three. QPainter starts at the
    // end point's direction, atan2(1, 100) = 0.57 degrees = 9/16, and turns counter-clockwise to
    // twelve o'clock (90 degrees = 1440/16).
    EXPECT_EQ(pieQtArc(square, {100, 0}, {200, 99}), (QtPieArc{9, 1431}));
    // A 100 per cent slice is 358 degrees: it ends at (96,0), 92.29 degrees in Qt terms, and goes
    // all the way round to twelve o'clock, leaving the background sliver of about 2 degrees.
    const PiePoint end = pieRimPoint(square, 358, false);
    EXPECT_EQ(end, (PiePoint{96, 0}));
    const QtPieArc full = pieQtArc(square, {100, 0}, end);
    EXPECT_EQ(full, (QtPieArc{1477, 5723}));
    EXPECT_EQ(5760 - full.span16, 37); // the sliver, 2.3 degrees after truncation of the point
}

TEST(PieGeometry, QtArcMatchesTheClockwiseSectorForEveryStartAndSize)
{
    // Whatever the slice, QPainter must be given the start (counter-clockwise from three) of the
    // slice's end and a positive span of about the slice's angle; a sign or origin error in the
    // mapping shows up as far larger differences than the truncation of the rim points.
    const PieRect square{0, 0, 400, 400};
    for (int start = 0; start < 360; start += 37) {
        for (int angle : {3, 26, 90, 145, 180, 270, 358}) {
            const PiePoint a = pieRimPoint(square, start, false);
            const PiePoint b = pieRimPoint(square, start + angle, false);
            const QtPieArc arc = pieQtArc(square, a, b);
            int expectedStart = ((90 - (start + angle)) % 360 + 360) % 360 * 16;
            int diff = std::abs(arc.start16 - expectedStart);
            diff = std::min(diff, 5760 - diff);
            EXPECT_LE(diff, 8) << "start " << start << " angle " << angle;
            EXPECT_NEAR(arc.span16, angle * 16, 12) << "start " << start << " angle " << angle;
            EXPECT_GE(arc.start16, 0);
            EXPECT_LT(arc.start16, 5760);
        }
    }
}

TEST(PieGeometry, SlicesFollowEachOtherAndSkipCoincidingPoints)
{
    const PieRect square{0, 0, 200, 200};
    const auto layout = layoutPieSlices(square, {120, 0, 27, 213});
    ASSERT_EQ(layout.size(), 4u);
    EXPECT_EQ(layout[0].startAngle, 0);
    EXPECT_EQ(layout[0].endAngle, 120);
    EXPECT_TRUE(layout[0].drawSector);
    EXPECT_EQ(layout[0].label, "33%");
    // A slice of 0 degrees has coinciding points and no sector (its legend row stays).
    EXPECT_EQ(layout[1].startAngle, 120);
    EXPECT_FALSE(layout[1].drawSector);
    EXPECT_EQ(layout[1].label, "");
    // 27 degrees from 120: the middle is 147 - 27 / 2 = 147 - 13 = 134, the half truncated.
    EXPECT_EQ(layout[2].label, "8%"); // 7.5 rounds to 8 in "%.0f"
    EXPECT_EQ(layout[2].labelPoint, pieRimPoint(square, 134, true));
    EXPECT_NE(pieRimPoint(square, 134, true), pieRimPoint(square, 133, true));
    EXPECT_EQ(layout[3].startAngle, 147);
    EXPECT_EQ(layout[3].endAngle, 360);
    EXPECT_EQ(layout[3].endPoint, layout[0].startPoint); // 360 is twelve o'clock again

    // On a small disc a one-degree slice has no distinct rim points and draws nothing; so does a
    // slice ending one degree short of its own start.
    const auto tiny = layoutPieSlices({0, 0, 20, 20}, {1, 300, 59});
    EXPECT_FALSE(tiny[0].drawSector);
    EXPECT_TRUE(tiny[1].drawSector);
    EXPECT_FALSE(layoutPieSlices({0, 0, 20, 20}, {1, 359})[1].drawSector);

    // The start angle shifts every slice.
    const auto shifted = layoutPieSlices(square, {90}, 90);
    EXPECT_EQ(shifted[0].startPoint, (PiePoint{200, 99}));
    EXPECT_EQ(shifted[0].endPoint, pieRimPoint(square, 180, false));
}

} // namespace
