#pragma once

namespace psrender::scene {

/// A point, in the units of the space that its owner names.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// An axis-parallel rectangle; `width` and `height` are never negative.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// An affine map in the order SVG and PostScript write it:
/// x' = a x + c y + e, y' = b x + d y + f.
struct Affine {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double e = 0;
    double f = 0;

    static Affine translation(double x, double y) { return {1, 0, 0, 1, x, y}; }
    static Affine scaling(double x, double y) { return {x, 0, 0, y, 0, 0}; }
    static Affine rotation(double degrees);
    static Affine skew(double xDegrees, double yDegrees);

    [[nodiscard]] Point apply(Point p) const {
        return {a * p.x + c * p.y + e, b * p.x + d * p.y + f};
    }
    [[nodiscard]] double determinant() const { return a * d - b * c; }
    /// The factor by which the map enlarges lengths on average: sqrt |determinant|.
    [[nodiscard]] double meanScale() const;
    /// The map back; the determinant must not be 0.
    [[nodiscard]] Affine inverse() const;
    /// Whether every coefficient is finite.
    [[nodiscard]] bool isFinite() const;

    friend bool operator==(const Affine&, const Affine&) = default;
};

/// `outer * inner`: the map that applies `inner` first.
Affine operator*(const Affine& outer, const Affine& inner);

}  // namespace psrender::scene
