#pragma once

#include <string>
#include <vector>

namespace velmora::charts {

// The pie chart's arithmetic, kept apart from any drawing so that it can be checked exactly.
// Rectangles follow the platform's convention: right and bottom are one past the last pixel.

struct PieRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool operator==(const PieRect&) const = default;
};

struct PiePoint
{
    int x = 0;
    int y = 0;
    bool operator==(const PiePoint&) const = default;
};

// Room kept on the right of the control for the legend, in pixels.
inline constexpr int PieLegendStrip = 50;
// Slices of this many degrees or fewer carry no percentage label.
inline constexpr int PieLabelLimit = 25;

// The square the disc is drawn in: the client rectangle less the legend strip, less twice the
// title's height when there is a title (titleHeight 0 means no title), the side being the smaller
// of the remaining height and width, centred horizontally and aligned with the bottom edge.
PieRect pieSquare(const PieRect& client, int titleHeight);

// The point on the rim (or at 0.6 of the radius when forLabel is set) for an angle in integer
// degrees running clockwise from twelve o'clock. Angles outside 0..359 are brought into range
// first. Coordinates are truncated toward zero.
PiePoint pieRimPoint(const PieRect& square, int angle, bool forLabel);

// The whole degrees of a slice added with an amount: a percentage is multiplied by 3.6; a result
// above 359 becomes 358, then the angle is truncated. An amount that is not a number counts as 0.
int pieSliceAngle(double amount, bool isPercent);

// The percentage label of a slice ("%.0f%%" of angle / 3.6), or an empty text for slices of
// PieLabelLimit degrees or fewer.
std::string pieLabelText(int angle);

// A sector as QPainter::drawPie takes it: start and span in 1/16 degree, counter-clockwise from
// three o'clock. The sector runs counter-clockwise from the radial through the end point to the
// radial through the start point, which is the clockwise sector from start to end.
struct QtPieArc
{
    int start16 = 0;
    int span16 = 0;
    bool operator==(const QtPieArc&) const = default;
};
QtPieArc pieQtArc(const PieRect& square, PiePoint startPoint, PiePoint endPoint);

// Everything the drawing needs of one slice.
struct PieSliceLayout
{
    int startAngle = 0; // running angle where the slice begins
    int endAngle = 0;   // startAngle + the slice's angle
    PiePoint startPoint;
    PiePoint endPoint;
    bool drawSector = false; // false when the two rim points coincide
    QtPieArc arc;
    std::string label;   // percentage text, empty when none is shown
    PiePoint labelPoint; // rim point of the middle angle at 0.6 of the radius
};

// Lays out slices of the given angles one after another from firstAngle.
std::vector<PieSliceLayout> layoutPieSlices(const PieRect& square, const std::vector<int>& angles,
                                            int firstAngle = 0);

} // namespace velmora::charts
