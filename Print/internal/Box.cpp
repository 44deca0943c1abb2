#include "Print/internal/Box.h"

#include <cmath>

namespace Drawing::Print {

double largestScale(const Matrix& m) {
    return std::max(std::hypot(m.getScaleX(), m.getShearY()),
                    std::hypot(m.getShearX(), m.getScaleY()));
}

std::optional<Matrix> inverse(const Matrix& m) {
    const double a = m.getScaleX();
    const double b = m.getShearY();
    const double c = m.getShearX();
    const double d = m.getScaleY();
    const double e = m.getTranslateX();
    const double f = m.getTranslateY();
    const double determinant = a * d - b * c;
    if (determinant == 0 || !std::isfinite(determinant))
        return std::nullopt;
    const auto part = [&](double value) { return static_cast<float>(value / determinant); };
    return Matrix(part(d), part(-b), part(-c), part(a), part(c * f - d * e), part(b * e - a * f));
}

Box Box::mapped(const Matrix& m) const {
    Box result;
    if (isEmpty())
        return result;
    for (const double x : {left, right})
        for (const double y : {top, bottom})
            result.hold(Print::mapped(m, x, y));
    return result;
}

}  // namespace Drawing::Print
