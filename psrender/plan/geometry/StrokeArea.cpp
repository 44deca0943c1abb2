// The area of a stroke as one ring a line, or two for a closed line.
//
// A ring goes along one side of the line and back along the other. At the inner side of a corner it
// goes through the corner itself. So a ring is the sum of the rectangles of all pieces and the
// wedges of all joins, each turned the same way, and the non-zero rule gives exactly their union.

#include "psrender/plan/geometry/StrokeArea.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace psrender::plan {

using scene::Cap;
using scene::Join;
using scene::Point;

namespace {

/// Across a direction, to the side that the ring follows.
Point across(Point direction) {
    return {direction.y, -direction.x};
}

Point directionOf(Point from, Point to) {
    return (to - from) * (1 / distance(from, to));
}

bool isStep(Point from, Point to) {
    return distance(from, to) > 0;
}

std::vector<Point> withoutRepeats(const Polyline& line) {
    std::vector<Point> points;
    for (const Point p : line.points)
        if (points.empty() || isStep(points.back(), p))
            points.push_back(p);
    while (line.closed && points.size() > 1 && !isStep(points.back(), points.front()))
        points.pop_back();
    return points;
}

class Pen {
public:
    Pen(const scene::StrokeStyle& style, double tolerance)
        : style_(style), half_(style.width / 2), step_(stepFor(half_, tolerance)) {}

    void draw(const Polyline& line) {
        std::vector<Point> points = withoutRepeats(line);
        if (points.empty())
            return;
        if (points.size() == 1)
            drawDot(points[0]);
        else if (line.closed)
            drawClosed(points);
        else
            drawOpen(points);
    }

    std::vector<Polyline> rings;

private:
    /// The angle whose chord stays within the tolerance.
    static double stepFor(double radius, double tolerance) {
        constexpr double kFinest = std::numbers::pi / 100;
        constexpr double kCoarsest = std::numbers::pi / 4;
        const double cosine = std::clamp(1 - tolerance / radius, -1.0, 1.0);
        return std::clamp(2 * std::acos(cosine), kFinest, kCoarsest);
    }

    void drawDot(Point at) {
        if (style_.cap == Cap::butt)
            return;
        rings.push_back({{}, true});
        cap(at, {1, 0});
        cap(at, {-1, 0});
    }
    void drawOpen(std::vector<Point>& points) {
        rings.push_back({{}, true});
        for (int side = 0; side < 2; ++side) {
            for (std::size_t i = 1; i + 1 < points.size(); ++i)
                corner(points[i - 1], points[i], points[i + 1]);
            const Point last = points.back();
            cap(last, directionOf(points[points.size() - 2], last));
            std::ranges::reverse(points);
        }
    }
    void drawClosed(std::vector<Point>& points) {
        const std::size_t count = points.size();
        for (int side = 0; side < 2; ++side) {
            rings.push_back({{}, true});
            for (std::size_t i = 0; i < count; ++i)
                corner(points[i], points[(i + 1) % count], points[(i + 2) % count]);
            std::ranges::reverse(points);
        }
    }

    void add(Point p) { rings.back().points.push_back(p); }

    void cap(Point at, Point direction) {
        const Point side = across(direction);
        const Point ahead = direction * (style_.cap == Cap::square ? half_ : 0);
        add(at + side * half_ + ahead);
        if (style_.cap == Cap::round)
            arc(at, side, std::numbers::pi);
        add(at + side * -half_ + ahead);
    }
    void corner(Point before, Point at, Point after) {
        const Point in = directionOf(before, at);
        const Point out = directionOf(at, after);
        add(at + across(in) * half_);
        if (cross(in, out) >= 0)
            join(at, in, out);
        else
            add(at);
        add(at + across(out) * half_);
    }
    /// On the outer side of a corner.
    void join(Point at, Point in, Point out) {
        const double cosine = std::clamp(dot(in, out), -1.0, 1.0);
        if (style_.join == Join::round)
            arc(at, across(in), std::acos(cosine));
        else if (style_.join == Join::miter &&
                 style_.miterLimit * style_.miterLimit * (1 + cosine) >= 2)
            add(at + (across(in) + across(out)) * (half_ / (1 + cosine)));
    }
    /// The points between both ends of an arc that begins at `side`.
    void arc(Point centre, Point side, double angle) {
        constexpr double most = 1e6;
        if (!(angle > 0 && step_ > 0))
            return;
        const auto count = static_cast<int>(std::min(std::ceil(angle / step_), most));
        for (int i = 1; i < count; ++i) {
            const double c = std::cos(angle * i / count);
            const double s = std::sin(angle * i / count);
            add(centre + Point{c * side.x - s * side.y, s * side.x + c * side.y} * half_);
        }
    }

    const scene::StrokeStyle& style_;
    double half_;
    double step_;
};

}  // namespace

std::vector<Polyline> ringsAround(const std::vector<Polyline>& lines,
                                  const scene::StrokeStyle& style, double tolerance) {
    if (!(style.width > 0))
        return {};
    Pen pen(style, tolerance);
    for (const Polyline& line : lines)
        pen.draw(line);
    return std::move(pen.rings);
}

}  // namespace psrender::plan
