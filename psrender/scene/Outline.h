#pragma once

#include "psrender/scene/Geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace psrender::scene {

/// Lines and cubic curves in the order in which they are drawn: a sequence of subpaths,
/// each opened by a move. Verbs and points lie in two flat arrays (move and line take one
/// point, a cubic three, close none), so an outline is two allocations whatever its length.
class Outline {
public:
    enum class Verb : std::uint8_t { move, line, cubic, close };

    static Outline rectangle(const Rect& rect);

    void moveTo(Point p);
    void lineTo(Point p);
    void cubicTo(Point control1, Point control2, Point end);
    void close();
    void append(const Outline& other);

    [[nodiscard]] bool empty() const { return verbs_.empty(); }
    [[nodiscard]] const std::vector<Verb>& verbs() const { return verbs_; }
    [[nodiscard]] const std::vector<Point>& points() const { return points_; }

    /// The same outline with every point mapped.
    [[nodiscard]] Outline transformed(const Affine& map) const;
    /// The box around all points, controls included; nothing for an empty outline.
    [[nodiscard]] std::optional<Rect> controlBox() const;

    friend bool operator==(const Outline&, const Outline&) = default;

private:
    std::vector<Verb> verbs_;
    std::vector<Point> points_;
};

}  // namespace psrender::scene
