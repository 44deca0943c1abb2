#include "psrender/svg/path/ArcToCubics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace psrender::svg {

using scene::Affine;
using scene::Outline;
using scene::Point;

namespace {

constexpr double kPi = std::numbers::pi;

/// An arc on the unit circle, and the map from there to where it is drawn.
struct CircleArc {
    Affine map;
    double from = 0;   ///< radians
    double sweep = 0;  ///< radians, positive clockwise as y points down
};

/// The start seen from the middle of the chord, along the ellipse's own axes; the end is
/// its mirror image.
Point halfChord(Point start, const Arc& arc) {
    const Point half{(start.x - arc.end.x) / 2, (start.y - arc.end.y) / 2};
    return Affine::rotation(-arc.degrees).apply(half);
}

/// The centre in the frame of `halfChord`, on the circle of radius 1 (both axes divided by
/// their radii): at a right angle to the chord, as far off as the circle needs.
Point unitCentre(Point unitStart, bool toTheLeft) {
    const double squared = unitStart.x * unitStart.x + unitStart.y * unitStart.y;
    const double distance = std::sqrt(std::max(0.0, (1 - squared) / squared));
    const double side = toTheLeft ? distance : -distance;
    return {side * unitStart.y, -side * unitStart.x};
}

double clockwiseSweep(double from, double to, bool isClockwise) {
    const double sweep = to - from;
    if (isClockwise)
        return sweep < 0 ? sweep + 2 * kPi : sweep;
    return sweep > 0 ? sweep - 2 * kPi : sweep;
}

CircleArc onUnitCircle(Point start, const Arc& arc) {
    const Point half = halfChord(start, arc);
    const double growth = std::max(1.0, std::hypot(half.x / arc.radiusX, half.y / arc.radiusY));
    const double radiusX = arc.radiusX * growth;
    const double radiusY = arc.radiusY * growth;
    const Point unitStart{half.x / radiusX, half.y / radiusY};
    const Point centre = unitCentre(unitStart, arc.isLarge != arc.isClockwise);

    const double from = std::atan2(unitStart.y - centre.y, unitStart.x - centre.x);
    const double to = std::atan2(-unitStart.y - centre.y, -unitStart.x - centre.x);
    const Point middle{(start.x + arc.end.x) / 2, (start.y + arc.end.y) / 2};
    const Affine map = Affine::translation(middle.x, middle.y) * Affine::rotation(arc.degrees) *
                       Affine::scaling(radiusX, radiusY) * Affine::translation(centre.x, centre.y);
    return {map, from, clockwiseSweep(from, to, arc.isClockwise)};
}

/// One cubic for each quarter turn or less keeps the error below 0.03 % of the radius. The
/// last point is the arc's end itself, free of rounding.
void appendCubics(Outline& outline, const CircleArc& arc, Point end) {
    const int count =
        std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / (kPi / 2) - 1e-9)));
    const double step = arc.sweep / count;
    const double handle = 4.0 / 3 * std::tan(step / 4);
    for (int i = 0; i < count; ++i) {
        const double a = arc.from + i * step;
        const double b = a + step;
        const Point control1{std::cos(a) - handle * std::sin(a),
                             std::sin(a) + handle * std::cos(a)};
        const Point control2{std::cos(b) + handle * std::sin(b),
                             std::sin(b) - handle * std::cos(b)};
        const Point to = i + 1 == count ? end : arc.map.apply({std::cos(b), std::sin(b)});
        outline.cubicTo(arc.map.apply(control1), arc.map.apply(control2), to);
    }
}

}  // namespace

void appendArc(Outline& outline, Point start, const Arc& arc) {
    if (start == arc.end)
        return;
    Arc positive = arc;
    positive.radiusX = std::abs(arc.radiusX);
    positive.radiusY = std::abs(arc.radiusY);
    if (positive.radiusX == 0 || positive.radiusY == 0)
        outline.lineTo(arc.end);
    else
        appendCubics(outline, onUnitCircle(start, positive), arc.end);
}

}  // namespace psrender::svg
