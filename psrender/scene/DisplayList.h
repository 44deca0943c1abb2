#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/scene/Outline.h"

#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

/// What a page shows, with everything resolved that the input format left open: no units,
/// no style sheets, no references, no inheritance. A reader fills it; the planner rewrites
/// it; the painter walks it. Nothing behind it knows which format it came from.
namespace psrender::scene {

/// A device RGB colour, 0 to 255 a component.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

/// What an area is covered with. `opacity` is 0 (invisible) to 1 (opaque) and holds the
/// paint's own share only; that of groups around it stands in their `BeginGroup`.
struct Paint {
    enum class Kind : std::uint8_t { none, solid };

    Kind kind = Kind::none;
    Color color;
    double opacity = 1;

    friend bool operator==(const Paint&, const Paint&) = default;
};

enum class FillRule : std::uint8_t { nonZero, evenOdd };
enum class Cap : std::uint8_t { butt, round, square };
enum class Join : std::uint8_t { miter, round, bevel };

/// How a line is drawn; lengths in the shape's own units. `dashes` alternates dash and gap
/// and has an even number of entries, at least one of them above 0, or is empty for a solid
/// line.
struct StrokeStyle {
    double width = 1;
    Cap cap = Cap::butt;
    Join join = Join::miter;
    double miterLimit = 4;
    std::vector<double> dashes;
    double dashOffset = 0;

    friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

/// An outline, filled and then stroked. The outline is shared, as the same one may stand
/// on a page many times.
struct Shape {
    std::shared_ptr<const Outline> outline;
    Affine transform;  ///< from the outline's space to the page
    Paint fill;
    FillRule fillRule = FillRule::nonZero;
    Paint stroke;
    StrokeStyle strokeStyle;
};

/// Everything up to the matching `EndGroup` is shown as one picture with this opacity.
struct BeginGroup {
    double opacity = 1;
};
struct EndGroup {};

using Item = std::variant<Shape, BeginGroup, EndGroup>;

/// One page: its size in points, y downwards from the top left corner, and its items from
/// the lowest to the topmost.
struct Page {
    double width = 0;
    double height = 0;
    std::vector<Item> items;
};

}  // namespace psrender::scene
