// Shapes: their outline, their paints and how their lines are drawn.

#include "psrender/Warnings.h"
#include "psrender/scene/OutlineBox.h"
#include "psrender/svg/SceneBuilder.h"
#include "psrender/svg/ShapeOutlines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>
#include <string>

namespace psrender::svg {

using scene::Affine;
using scene::Paint;
using scene::Shape;
using scene::StrokeStyle;

namespace {

struct LeftOut {
    FeatureSet features;
    const char* sentence;
};

constexpr std::array leftOutAnywhere{
    LeftOut{feature::mask, "masks are left out (mask)"},
    LeftOut{feature::filter, "filters are left out (filter)"},
    LeftOut{feature::blendMode, "blend modes are left out (mix-blend-mode)"},
};
constexpr std::array leftOutOfShapes{
    LeftOut{feature::paintOrder, "fill is drawn before stroke whatever is asked (paint-order)"},
    LeftOut{feature::fixedStrokeWidth, "lines are scaled with their shape (vector-effect)"},
};

void warn(const LeftOut& leftOut, FeatureSet present, Warnings& warnings) {
    if ((leftOut.features & present) != 0)
        warnings.add(leftOut.sentence);
}

bool isPainted(const PaintValue& value) {
    return value.hasReference || value.plain.kind != PlainPaint::Kind::none;
}

/// The box that paints which refer to something may go by.
std::optional<scene::Rect> boxFor(const ComputedStyle& style, const scene::Outline& outline) {
    if (!style.fill.hasReference && !style.stroke.hasReference)
        return std::nullopt;
    const auto box = scene::tightBox(outline);
    return box && box->width > 0 && box->height > 0 ? box : std::nullopt;
}

/// An odd list stands for the list twice over, and one of zeros for a solid line.
std::vector<double> resolveDashes(const DashList& list, const Measures& measures) {
    std::vector<double> dashes;
    if (!list)
        return dashes;
    const std::size_t rounds = list->size() % 2 == 0 ? 1 : 2;
    dashes.reserve(list->size() * rounds);
    for (std::size_t i = 0; i < rounds; ++i)
        for (const Length& length : *list)
            dashes.push_back(length.resolve(measures, Axis::other));
    if (std::all_of(dashes.begin(), dashes.end(), [](double dash) { return dash == 0; }))
        dashes.clear();
    return dashes;
}

/// The same place in the pattern, counted from its beginning.
double withinPattern(double offset, const std::vector<double>& dashes) {
    const double total = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    if (total <= 0)
        return 0;
    const double rest = std::fmod(offset, total);
    return rest < 0 ? rest + total : rest;
}

StrokeStyle resolveStroke(const ComputedStyle& style, const Measures& measures) {
    StrokeStyle stroke;
    stroke.width = style.strokeWidth.resolve(measures, Axis::other);
    stroke.cap = style.cap;
    stroke.join = style.join;
    stroke.miterLimit = style.miterLimit;
    stroke.dashes = resolveDashes(style.dashes, measures);
    stroke.dashOffset =
        withinPattern(style.dashOffset.resolve(measures, Axis::other), stroke.dashes);
    return stroke;
}

}  // namespace

void SceneBuilder::drawShape(ElementKind kind, pugi::xml_node element, const Surroundings& inside) {
    if (!inside.style.isVisible || !canBeDrawn(inside.toPage))
        return;
    const bool marked = hasMarkers(kind, inside.style);
    if (!marked && !isPainted(inside.style.fill) && !isPainted(inside.style.stroke))
        return;
    const SharedOutline outline = shapes_.read(element, kind, inside.measures, inside.isReferred);
    if (!outline)
        return;
    addShape(paintedShape(outline, inside), element);
    if (marked)
        drawMarkers(element, *outline, inside);
}

Shape SceneBuilder::paintedShape(const SharedOutline& outline, const Surroundings& inside) {
    Shape shape = painted({boxFor(inside.style, *outline), inside.measures, inside.depth}, inside);
    shape.outline = outline;
    return shape;
}

Shape SceneBuilder::painted(const PaintPlace& place, const Surroundings& inside) {
    const ComputedStyle& style = inside.style;
    Shape shape;
    shape.transform = inside.toPage;
    shape.fill = paints_.resolve(style.fill, style.fillOpacity, style.color, place);
    shape.fillRule = style.fillRule;
    if (style.strokeWidth.value > 0)
        shape.stroke = paints_.resolve(style.stroke, style.strokeOpacity, style.color, place);
    if (shape.stroke.kind != Paint::Kind::none)
        shape.strokeStyle = resolveStroke(style, inside.measures);
    return shape;
}

void SceneBuilder::addShape(Shape shape, pugi::xml_node element) {
    if (!hasInside(*shape.outline))
        shape.fill = {};
    if (shape.fill.kind == Paint::Kind::none && shape.stroke.kind == Paint::Kind::none)
        return;
    if (!items_.add(std::move(shape)))
        failOfSize(element);
}

void SceneBuilder::failOfSize(pugi::xml_node element) const {
    const ReadingLimits& limits = items_.limits();
    tree_.fail(element, "the picture has more than " + std::to_string(limits.shapes) +
                            " shapes or " + std::to_string(limits.points()) +
                            " points; split it, simplify its paths, or raise the limit with "
                            "--max-shapes");
}

/// A map that flattens everything shows nothing.
bool SceneBuilder::canBeDrawn(const Affine& toPage) {
    const double determinant = toPage.determinant();
    if (determinant != 0 && std::isfinite(determinant) && toPage.isFinite())
        return true;
    if (determinant != 0)
        warnings_.add("shapes that are enlarged beyond all measure are left out");
    return false;
}

void SceneBuilder::warnOfLeftOut(const ComputedStyle& style, ElementKind kind) {
    if (style.leftOut == 0)
        return;
    for (const LeftOut& leftOut : leftOutAnywhere)
        warn(leftOut, style.leftOut, warnings_);
    if (!isShape(kind))
        return;
    for (const LeftOut& leftOut : leftOutOfShapes)
        warn(leftOut, style.leftOut, warnings_);
}

}  // namespace psrender::svg
