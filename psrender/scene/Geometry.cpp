#include "psrender/scene/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace psrender::scene {

namespace {
double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}
}  // namespace

double distance(Point a, Point b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

Point lerp(Point a, Point b, double share) {
    return {std::lerp(a.x, b.x, share), std::lerp(a.y, b.y, share)};
}

Rect Rect::between(Point a, Point b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x), std::abs(b.y - a.y)};
}

bool Rect::contains(const Rect& inner) const {
    return inner.x >= x && inner.y >= y && inner.right() <= right() && inner.bottom() <= bottom();
}

bool Rect::meets(const Rect& other) const {
    return x <= other.right() && other.x <= right() && y <= other.bottom() && other.y <= bottom();
}

std::optional<Rect> Rect::common(const Rect& other) const {
    const double left = std::max(x, other.x);
    const double top = std::max(y, other.y);
    const double end = std::min(right(), other.right());
    const double low = std::min(bottom(), other.bottom());
    if (!(left <= end && top <= low))
        return std::nullopt;
    return Rect{left, top, end - left, low - top};
}

Rect Rect::around(const Rect& other) const {
    const double left = std::min(x, other.x);
    const double top = std::min(y, other.y);
    return {left, top, std::max(right(), other.right()) - left,
            std::max(bottom(), other.bottom()) - top};
}

Rect Rect::grown(double by) const {
    return {x - by, y - by, width + 2 * by, height + 2 * by};
}

Rect Rect::mapped(const Affine& map) const {
    return between(map.apply({x, y}), map.apply({right(), bottom()}))
        .around(between(map.apply({right(), y}), map.apply({x, bottom()})));
}

Rect around(const std::optional<Rect>& box, const Rect& other) {
    return box ? box->around(other) : other;
}

Affine Affine::rotation(double degrees) {
    const double c = std::cos(radians(degrees));
    const double s = std::sin(radians(degrees));
    return {c, s, -s, c, 0, 0};
}

Affine Affine::skew(double xDegrees, double yDegrees) {
    return {1, std::tan(radians(yDegrees)), std::tan(radians(xDegrees)), 1, 0, 0};
}

double Affine::meanScale() const {
    return std::sqrt(std::abs(determinant()));
}

double Affine::largestScale() const {
    return std::max(std::hypot(a, b), std::hypot(c, d));
}

Affine Affine::inverse() const {
    const double size = determinant();
    return {
        d / size, -b / size, -c / size, a / size, (c * f - d * e) / size, (b * e - a * f) / size};
}

bool Affine::isFinite() const {
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d) &&
           std::isfinite(e) && std::isfinite(f);
}

bool Affine::isInvertible() const {
    return isFinite() && determinant() != 0 && std::isfinite(determinant());
}

Affine operator*(const Affine& outer, const Affine& inner) {
    return {outer.a * inner.a + outer.c * inner.b,
            outer.b * inner.a + outer.d * inner.b,
            outer.a * inner.c + outer.c * inner.d,
            outer.b * inner.c + outer.d * inner.d,
            outer.a * inner.e + outer.c * inner.f + outer.e,
            outer.b * inner.e + outer.d * inner.f + outer.f};
}

}  // namespace psrender::scene
