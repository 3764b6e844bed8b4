#include "charts/data/PieGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace velmora::charts {

namespace {
constexpr double Pi = 3.1415926535;
constexpr double OneOver180 = 0.005555555555555556;
constexpr double LabelRadius = 0.6;
constexpr double PercentPerDegree = 0.2777777777777778;
constexpr int Sixteenths = 16;
constexpr int FullTurn16 = 360 * Sixteenths;

// The direction of a point seen from the square's centre in QPainter's terms: degrees
// counter-clockwise from three o'clock, y growing downwards on screen.
double qtDegrees(const PieRect& square, PiePoint p)
{
    const double cx = (square.left + square.right) * 0.5;
    const double cy = (square.top + square.bottom) * 0.5;
    return std::atan2(-(p.y - cy), p.x - cx) * 180.0 / std::numbers::pi;
}

int wrap16(long v)
{
    v %= FullTurn16;
    if (v < 0)
        v += FullTurn16;
    return static_cast<int>(v);
}
} // namespace

PieRect pieSquare(const PieRect& client, int titleHeight)
{
    PieRect r = client;
    r.right -= PieLegendStrip;
    if (titleHeight > 0)
        r.top += 2 * titleHeight;
    const int side = std::min(r.bottom - r.top, r.right - r.left);
    r.left = (r.right - side - r.left) / 2 + r.left;
    r.top = r.bottom - side;
    r.right = r.left + side;
    return r;
}

PiePoint pieRimPoint(const PieRect& square, int angle, bool forLabel)
{
    int a = angle;
    if (a < 0)
        a += ((-a + 359) / 360) * 360;
    if (a > 359)
        a %= 360;
    const double theta = a * Pi * OneOver180;
    double r = (square.right - square.left) * 0.5;
    if (forLabel)
        r *= LabelRadius;
    const double x = std::sin(theta) * r + (square.left + square.right) * 0.5;
    const double y = -std::cos(theta) * r + (square.top + square.bottom) * 0.5;
    return {static_cast<int>(x), static_cast<int>(y)};
}

int pieSliceAngle(double amount, bool isPercent)
{
    double degrees = isPercent ? amount * 3.6 : amount;
    if (!std::isfinite(degrees))
        return 0;
    if (degrees > 359)
        degrees = 358;
    // Large negative amounts cannot occur from the callers' shares; keep the cast defined.
    degrees = std::max(degrees, -359.0);
    return static_cast<int>(degrees);
}

std::string pieLabelText(int angle)
{
    if (angle <= PieLabelLimit)
        return {};
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.0f%%", angle * PercentPerDegree);
    return buffer;
}

QtPieArc pieQtArc(const PieRect& square, PiePoint startPoint, PiePoint endPoint)
{
    const long start16 = std::lround(qtDegrees(square, startPoint) * Sixteenths);
    const long end16 = std::lround(qtDegrees(square, endPoint) * Sixteenths);
    int span = wrap16(start16 - end16);
    if (span == 0 && startPoint != endPoint)
        span = FullTurn16; // distinct points in the same direction: the sector goes all round
    return {wrap16(end16), span};
}

std::vector<PieSliceLayout> layoutPieSlices(const PieRect& square, const std::vector<int>& angles,
                                            int firstAngle)
{
    std::vector<PieSliceLayout> out;
    out.reserve(angles.size());
    int running = firstAngle;
    for (int angle : angles) {
        PieSliceLayout s;
        s.startAngle = running;
        s.endAngle = running + angle;
        s.startPoint = pieRimPoint(square, s.startAngle, false);
        s.endPoint = pieRimPoint(square, s.endAngle, false);
        s.drawSector = s.startPoint != s.endPoint;
        if (s.drawSector)
            s.arc = pieQtArc(square, s.startPoint, s.endPoint);
        s.label = pieLabelText(angle);
        s.labelPoint = pieRimPoint(square, s.endAngle - angle / 2, true);
        out.push_back(s);
        running = s.endAngle;
    }
    return out;
}

} // namespace velmora::charts
