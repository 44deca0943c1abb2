#pragma once

#include <optional>

namespace psrender::scene {

/// A point, or a step, in the units of the space that its owner names.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
};

inline double dot(Point a, Point b) {
    return a.x * b.x + a.y * b.y;
}
inline double cross(Point a, Point b) {
    return a.x * b.y - a.y * b.x;
}
double distance(Point a, Point b);
/// The point at a share of the way from `a` to `b`.
Point lerp(Point a, Point b, double share);

struct Affine;

/// An axis-parallel rectangle; `width` and `height` are never negative.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    /// The one with these opposite corners.
    static Rect between(Point a, Point b);

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
    [[nodiscard]] double area() const { return width * height; }
    [[nodiscard]] Point centre() const { return {x + width / 2, y + height / 2}; }
    /// Whether all of `inner` lies within; never for what is no number.
    [[nodiscard]] bool contains(const Rect& inner) const;
    /// Whether both have a point in common, be it on their borders.
    [[nodiscard]] bool meets(const Rect& other) const;
    /// What both have in common; nothing if they do not even touch.
    [[nodiscard]] std::optional<Rect> common(const Rect& other) const;
    /// The box around both.
    [[nodiscard]] Rect around(const Rect& other) const;
    /// Larger by this on each side.
    [[nodiscard]] Rect grown(double by) const;
    /// The box around the mapped rectangle.
    [[nodiscard]] Rect mapped(const Affine& map) const;

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// The box around one that may be nothing yet and another.
Rect around(const std::optional<Rect>& box, const Rect& other);

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
    /// The factor by which the map enlarges lengths along the axis that it enlarges most.
    [[nodiscard]] double largestScale() const;
    /// The map back; the determinant must not be 0.
    [[nodiscard]] Affine inverse() const;
    /// Whether every coefficient is finite.
    [[nodiscard]] bool isFinite() const;
    /// Whether there is a map back: every number is one, and areas do not vanish.
    [[nodiscard]] bool isInvertible() const;

    friend bool operator==(const Affine&, const Affine&) = default;
};

/// `outer * inner`: the map that applies `inner` first.
Affine operator*(const Affine& outer, const Affine& inner);

}  // namespace psrender::scene
