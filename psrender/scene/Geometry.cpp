#include "psrender/scene/Geometry.h"

#include <cmath>
#include <numbers>

namespace psrender::scene {

namespace {
double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}
}  // namespace

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

Affine Affine::inverse() const {
    const double size = determinant();
    return {
        d / size, -b / size, -c / size, a / size, (c * f - d * e) / size, (b * e - a * f) / size};
}

bool Affine::isFinite() const {
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d) &&
           std::isfinite(e) && std::isfinite(f);
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
