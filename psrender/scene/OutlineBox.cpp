#include "psrender/scene/OutlineBox.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace psrender::scene {

namespace {

/// Along one axis.
class Extent {
public:
    explicit Extent(double value) : low_(value), high_(value) {}

    void include(double value) {
        low_ = std::min(low_, value);
        high_ = std::max(high_, value);
    }
    /// A curve turns where its derivative, a quadratic, is 0.
    void includeCurve(double p0, double p1, double p2, double p3) {
        include(p3);
        if (std::min(p1, p2) >= low_ && std::max(p1, p2) <= high_)
            return;
        const double a = p3 - 3 * p2 + 3 * p1 - p0;
        const double b = 2 * (p2 - 2 * p1 + p0);
        const double c = p1 - p0;
        const double root = std::sqrt(std::max(0.0, b * b - 4 * a * c));
        const double sum = -(b + std::copysign(root, b)) / 2;
        for (const double t : {sum / a, c / sum})
            if (t > 0 && t < 1)
                include(curveAt(t, {p0, p1, p2, p3}));
    }

    [[nodiscard]] double low() const { return low_; }
    [[nodiscard]] double size() const { return high_ - low_; }

private:
    static double curveAt(double t, const std::array<double, 4>& p) {
        const double s = 1 - t;
        return s * s * s * p[0] + 3 * s * s * t * p[1] + 3 * s * t * t * p[2] + t * t * t * p[3];
    }

    double low_;
    double high_;
};

Extent extentAlong(const Outline& outline, double Point::*axis) {
    const Point* next = outline.points().data();
    Extent extent(next->*axis);
    for (const Outline::Verb verb : outline.verbs()) {
        if (verb == Outline::Verb::cubic) {
            extent.includeCurve(next[-1].*axis, next[0].*axis, next[1].*axis, next[2].*axis);
            next += 3;
        } else if (verb != Outline::Verb::close) {
            extent.include((next++)->*axis);
        }
    }
    return extent;
}

}  // namespace

std::optional<Rect> tightBox(const Outline& outline) {
    if (outline.points().empty())
        return std::nullopt;
    const Extent x = extentAlong(outline, &Point::x);
    const Extent y = extentAlong(outline, &Point::y);
    return Rect{x.low(), y.low(), x.size(), y.size()};
}

}  // namespace psrender::scene
