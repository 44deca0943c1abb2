#include "Drawing/Util.h"

#include "Drawing/SizeF.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Drawing {

namespace {

struct Direction {
    double cosine;
    double sine;
};

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

/// Exact on the axes, where an ellipse must touch its box.
Direction directionOf(double degrees) {
    const double turn = std::fmod(std::fmod(degrees, 360) + 360, 360);
    if (turn == 0)
        return {1, 0};
    if (turn == 90)
        return {0, 1};
    if (turn == 180)
        return {-1, 0};
    if (turn == 270)
        return {0, -1};
    return {std::cos(radians(degrees)), std::sin(radians(degrees))};
}

class Ellipse {
public:
    Ellipse(float left, float top, float right, float bottom)
        : centreX_((double{left} + right) / 2),
          centreY_((double{top} + bottom) / 2),
          radiusX_((double{right} - left) / 2),
          radiusY_((double{bottom} - top) / 2) {}

    /// The point at `direction`, moved along the tangent by `lead` radii.
    [[nodiscard]] XPointF at(const Direction& direction, double lead) const {
        const double x = direction.cosine - lead * direction.sine;
        const double y = direction.sine + lead * direction.cosine;
        return {static_cast<float>(centreX_ + radiusX_ * x),
                static_cast<float>(centreY_ + radiusY_ * y)};
    }

private:
    double centreX_;
    double centreY_;
    double radiusX_;
    double radiusY_;
};

/// Control distance of an arc of `degrees`, in radii, with its sign.
double controlDistance(double degrees) {
    if (std::abs(degrees) == 90)
        return std::copysign(kQuarterArc, degrees);
    return 4.0 / 3.0 * std::tan(radians(degrees) / 4);
}

}  // namespace

void Util::bezierArc(float left, float top, float right, float bottom, double start, double extent,
                     Core::Vector<XPointF>& points) {
    const Ellipse ellipse(left, top, right, bottom);
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(extent) / 90)));
    const double step = extent / count;
    const double lead = controlDistance(step);
    points.reserve(points.size() + static_cast<std::size_t>(count) * 4);
    for (int i = 0; i < count; ++i) {
        const Direction from = directionOf(start + step * i);
        const Direction to = directionOf(start + step * (i + 1));
        points.insert(points.end(), {ellipse.at(from, 0), ellipse.at(from, lead),
                                     ellipse.at(to, -lead), ellipse.at(to, 0)});
    }
}

}  // namespace Drawing
