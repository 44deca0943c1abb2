#pragma once

#include "Drawing/Matrix.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace Drawing::Print {

struct Spot {
    double x = 0;
    double y = 0;
};

inline Spot mapped(const Matrix& m, double x, double y) {
    return {x * m.getScaleX() + y * m.getShearX() + m.getTranslateX(),
            x * m.getShearY() + y * m.getScaleY() + m.getTranslateY()};
}

/// The largest factor by which lengths grow under `m`, or a little more.
double largestScale(const Matrix& m);
/// The map back; nothing for one that flattens the plane.
std::optional<Matrix> inverse(const Matrix& m);

/// An upright rectangle; a new one is empty and grows with what it is told to hold.
struct Box {
    double left = std::numeric_limits<double>::infinity();
    double top = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();

    [[nodiscard]] bool isEmpty() const { return !(left <= right && top <= bottom); }
    void hold(Spot p) {
        left = std::min(left, p.x);
        right = std::max(right, p.x);
        top = std::min(top, p.y);
        bottom = std::max(bottom, p.y);
    }
    void holdBox(const Box& other) {
        hold(Spot{other.left, other.top});
        hold(Spot{other.right, other.bottom});
    }
    [[nodiscard]] Box common(const Box& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    [[nodiscard]] Box grown(double by) const {
        return {left - by, top - by, right + by, bottom + by};
    }
    /// The box around what this one becomes.
    [[nodiscard]] Box mapped(const Matrix& m) const;
};

}  // namespace Drawing::Print
