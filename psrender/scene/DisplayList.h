#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Image.h"
#include "psrender/scene/Color.h"
#include "psrender/scene/Effects.h"
#include "psrender/scene/Geometry.h"
#include "psrender/scene/Outline.h"
#include "psrender/scene/TextRun.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// What a page shows, with everything resolved that the input format left open: no units,
/// no style sheets, no references, no inheritance. A reader fills it; the planner rewrites
/// it; the painter walks it. Nothing behind it knows which format it came from.
namespace psrender::scene {

struct Gradient;
struct Pattern;
struct ColorField;

/// What an area is covered with: nothing, one colour, or one of the paint servers, which are never
/// null. `opacity` is 0 (invisible) to 1 (opaque) and holds the paint's own share only; that of
/// groups around it stands in their `BeginGroup`.
struct Paint {
    using Source = std::variant<std::monostate, Color, std::shared_ptr<const Gradient>,
                                std::shared_ptr<const Pattern>, std::shared_ptr<const ColorField>>;

    Source source;
    double opacity = 1;

    /// What it is covered with if that is of the asked kind, else null.
    [[nodiscard]] const Color* color() const { return std::get_if<Color>(&source); }
    [[nodiscard]] const Gradient* gradient() const { return server<Gradient>(); }
    [[nodiscard]] const Pattern* pattern() const { return server<Pattern>(); }
    [[nodiscard]] const ColorField* field() const { return server<ColorField>(); }

    friend bool operator==(const Paint&, const Paint&) = default;

private:
    template <class Server>
    [[nodiscard]] const Server* server() const {
        const auto* shared = std::get_if<std::shared_ptr<const Server>>(&source);
        return shared != nullptr ? shared->get() : nullptr;
    }
};

/// Whether there is anything to paint with.
inline bool isPainted(const Paint& paint) {
    return !std::holds_alternative<std::monostate>(paint.source);
}

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

    [[nodiscard]] Shape onlyFill() const;
    [[nodiscard]] Shape onlyStroke() const;
};

/// A run of text in one font and its paints; fill and stroke as of a shape.
struct Text {
    std::shared_ptr<const TextRun> run;
    Affine transform;  ///< from the run's space to the page
    Paint fill;
    Paint stroke;
    StrokeStyle strokeStyle;
};

/// A raster image. Its opacity multiplies the alpha of its pixels.
struct Picture {
    Core::SmartPtr<Drawing::Image> image;
    Affine transform;  ///< from the square of side 1 that the image fills, y downwards
    double opacity = 1;
    /// Each pixel is opaque or clear, and nothing has to be blended with what lies beneath.
    bool isCutOut = false;
    bool isSmooth = true;  ///< enlarged pixels run into each other
};

struct ItemList;

/// An area outside of which nothing is shown: wherever the items of `area` cover something,
/// whatever their paints and opacities are.
struct Clip {
    std::shared_ptr<const ItemList> area;
    Affine transform;  ///< from the area's space to the page
};

/// A clip to a rectangle in a space of its own.
Clip rectangleClip(const Rect& rect, const Affine& toPage);

/// Everything up to the matching `EndGroup` is shown as one picture with this opacity, within
/// `clip` if there is one. Effects come before both; most groups have none.
struct BeginGroup {
    double opacity = 1;
    std::optional<Clip> clip{};
    std::shared_ptr<const Effects> effects{};
};
struct EndGroup {};

/// Items that are shown in many places. Placements of the same symbol share its list.
struct Placement {
    std::shared_ptr<const ItemList> symbol;
    Affine transform;  ///< from the symbol's space to the page
};

using Item = std::variant<Shape, Text, Picture, BeginGroup, EndGroup, Placement>;

/// Items in a space of their own, from the lowest to the topmost. Transforms and clips within
/// lead to that space instead of the page.
struct ItemList {
    std::vector<Item> items;
};

/// What `placement` shows, where it shows it. There may be placements among it again.
[[nodiscard]] std::vector<Item> itemsOf(const Placement& placement);

/// The paint of a shape or text that has one only.
template <class Painted>
requires requires(Painted& item) {
    item.strokeStyle;
}
auto& paintOf(Painted& item) {
    return isPainted(item.fill) ? item.fill : item.stroke;
}
/// The same of any item; null for one that is not painted.
[[nodiscard]] const Paint* paintOf(const Item& item);
/// Where an item lies; null for groups.
[[nodiscard]] const Affine* transformOf(const Item& item);

/// A colour at a place along a gradient: 0 its start, 1 its end.
struct ColorStop {
    double position = 0;
    Color color;
    double opacity = 1;

    friend bool operator==(const ColorStop&, const ColorStop&) = default;
};

/// How a gradient goes on before its start and behind its end.
enum class Spread : std::uint8_t { pad, repeat, reflect };

/// Colours that run from `start` to `end`, or from the circle around `start` to the one around
/// `end`, which are in the gradient's own space.
struct Gradient {
    enum class Kind : std::uint8_t { linear, radial };

    Kind kind = Kind::linear;
    Point start;
    Point end;
    double startRadius = 0;  ///< of a radial gradient
    double endRadius = 0;
    Spread spread = Spread::pad;
    /// At least one; positions ascend within 0 and 1. Shared between gradients that differ in
    /// geometry only.
    std::shared_ptr<const std::vector<ColorStop>> stops;
    Affine transform;  ///< to the space of the outline that is painted
};

/// A tile that repeats in both directions.
struct Pattern {
    Rect tile;  ///< one tile in the pattern's space: where it begins and its steps
    std::shared_ptr<const ItemList> content;
    Affine transform;       ///< from the pattern's space to that of the outline that is painted
    bool isClipped = true;  ///< whether content beyond the tile is hidden
};

/// Colours at the crossings of a grid that is spread over a box, the outermost ones on its edges.
/// They run into each other between them, and nothing is painted beyond.
struct ColorField {
    Rect box;
    std::size_t columns = 2;
    std::size_t rows = 2;
    std::vector<Color> colors;  ///< `columns` times `rows`, the top row first
    Affine transform;           ///< to the space of the outline that is painted
};

/// One page: its size in points, y downwards from the top left corner, and its items.
struct Page : ItemList {
    double width = 0;
    double height = 0;
};

/// The same paint for an outline whose points `map` has moved.
[[nodiscard]] Paint moved(const Paint& paint, const Affine& map);

/// Maps everything in `list` by `map`.
void transform(ItemList& list, const Affine& map);

}  // namespace psrender::scene
