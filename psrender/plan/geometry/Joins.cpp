#include "psrender/plan/geometry/Joins.h"

#include "psrender/plan/geometry/DashWalk.h"
#include "psrender/plan/geometry/Polyline.h"

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace psrender::plan {

namespace {

using scene::Outline;
using scene::Point;
using scene::Shape;

/// A bevel that stays this close to the arc is not replaced: 1/3600 of an inch.
constexpr double kVisible = 0.02;  // points

struct Direction {
    double x = 0;
    double y = 0;

    [[nodiscard]] bool isNull() const { return x == 0 && y == 0; }
};

Direction between(Point from, Point to) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0))
        return {};
    return {(to.x - from.x) / length, (to.y - from.y) / length};
}

Direction firstOf(std::initializer_list<Direction> candidates) {
    for (const Direction& candidate : candidates)
        if (!candidate.isNull())
            return candidate;
    return {};
}

/// Collects the vertices at which the line turns visibly and lies in a dash.
class JoinCollector {
public:
    JoinCollector(const scene::StrokeStyle& style, double scale)
        : radius_(style.width / 2 * scale), walk_(style) {}

    void move(Point /*p*/) {
        hasFirst_ = false;
        arriving_ = {};
        walk_.restart();
    }
    void line(Point from, Point to) {
        const Direction along = between(from, to);
        if (!along.isNull())
            step(from, along, along, std::hypot(to.x - from.x, to.y - from.y));
    }
    void cubic(Point from, Point c1, Point c2, Point to) {
        const Direction out = firstOf({between(from, c1), between(from, c2), between(from, to)});
        const Direction in = firstOf({between(c2, to), between(c1, to), between(from, to)});
        if (!out.isNull())
            step(from, out, in, lengthOfCubic(from, c1, c2, to));
    }
    /// A dash that reaches the start is joined to the one that begins there.
    void close(Point from, Point start) {
        line(from, start);
        if (hasFirst_ && startsWithDash_ && walk_.isDashBehind())
            consider(start, arriving_, leavingFirst_);
        hasFirst_ = false;
        arriving_ = {};
        walk_.restart();
    }

    std::vector<Point> joins;

private:
    void step(Point from, Direction leaving, Direction arriving, double length) {
        if (hasFirst_ && walk_.isDashBehind() && walk_.isDashAhead())
            consider(from, arriving_, leaving);
        if (!hasFirst_) {
            leavingFirst_ = leaving;
            startsWithDash_ = walk_.isDashAhead();
        }
        hasFirst_ = true;
        arriving_ = arriving;
        walk_.advance(length);
    }

    /// The disc reaches beyond the bevel by radius (1 - cos(turn / 2)).
    void consider(Point at, Direction in, Direction out) {
        const double cosine = in.x * out.x + in.y * out.y;
        const double halfCosine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
        if (radius_ * (1 - halfCosine) > kVisible)
            joins.push_back(at);
    }

    double radius_;  ///< on the page, points
    DashWalk walk_;
    bool hasFirst_ = false;
    bool startsWithDash_ = false;
    Direction leavingFirst_;
    Direction arriving_;
};

Outline dotsAt(const std::vector<Point>& points) {
    Outline outline;
    for (const Point& p : points) {
        outline.moveTo(p);
        outline.lineTo(p);
    }
    return outline;
}

/// Collects the subpaths that are drawn, if only by a close, and stay on one point.
class DotCollector {
public:
    void move(Point p) {
        finish();
        at_ = p;
    }
    void line(Point /*from*/, Point to) { draw(to == at_); }
    void cubic(Point /*from*/, Point c1, Point c2, Point to) {
        draw(c1 == at_ && c2 == at_ && to == at_);
    }
    void close(Point /*from*/, Point start) {
        draw(start == at_);
        move(start);
    }
    void finish() {
        if (isDrawn_ && isDot_)
            dots.push_back(at_);
        isDrawn_ = false;
        isDot_ = true;
    }

    std::vector<Point> dots;

private:
    void draw(bool staysHere) {
        isDrawn_ = true;
        isDot_ = isDot_ && staysHere;
    }

    Point at_;
    bool isDrawn_ = false;
    bool isDot_ = true;
};

void addSquare(Outline& outline, Point centre, double width) {
    const double half = width / 2;
    outline.moveTo({centre.x - half, centre.y - half});
    outline.lineTo({centre.x + half, centre.y - half});
    outline.lineTo({centre.x + half, centre.y + half});
    outline.lineTo({centre.x - half, centre.y + half});
    outline.close();
}

}  // namespace

std::optional<Shape> replaceRoundJoins(Shape& shape) {
    if (shape.strokeStyle.join != scene::Join::round)
        return std::nullopt;
    JoinCollector collector(shape.strokeStyle, shape.transform.meanScale());
    visit(*shape.outline, collector);
    shape.strokeStyle.join = scene::Join::bevel;
    if (collector.joins.empty())
        return std::nullopt;
    Shape discs = shape;
    discs.outline = std::make_shared<Outline>(dotsAt(collector.joins));
    discs.fill = {};
    discs.strokeStyle.cap = scene::Cap::round;
    discs.strokeStyle.dashes.clear();
    return discs;
}

std::optional<Shape> squareDots(const Shape& shape) {
    if (shape.strokeStyle.cap != scene::Cap::square)
        return std::nullopt;
    DotCollector collector;
    visit(*shape.outline, collector);
    collector.finish();
    Outline squares;
    for (const Point dot : collector.dots)
        addSquare(squares, dot, shape.strokeStyle.width);
    if (squares.empty())
        return std::nullopt;
    Shape dots = shape;
    dots.outline = std::make_shared<Outline>(std::move(squares));
    dots.fill = std::exchange(dots.stroke, {});
    return dots;
}

}  // namespace psrender::plan
