#include "psrender/svg/elements/ShapeDrawer.h"

#include "psrender/base/Warnings.h"
#include "psrender/scene/OutlineBox.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/elements/MarkerReader.h"
#include "psrender/svg/paint/ShapePaints.h"
#include "psrender/svg/path/ShapeReader.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace psrender::svg {

namespace {

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

/// Dashes that nobody can tell apart are seen as a line that is partly clear.
void softenFineDashes(scene::Shape& shape) {
    constexpr double kFinest = 0.02;  // points
    auto& dashes = shape.strokeStyle.dashes;
    double painted = 0;
    double total = 0;
    for (std::size_t i = 0; i < dashes.size(); ++i) {
        painted += i % 2 == 0 ? dashes[i] : 0;
        total += dashes[i];
    }
    if (dashes.empty() || total * shape.transform.meanScale() > kFinest)
        return;
    dashes.clear();
    shape.stroke.opacity *= painted / total;
}

}  // namespace

void ShapeDrawer::addUnpainted(ElementKind kind, pugi::xml_node element,
                               const Surroundings& inside) {
    if (!canvas_.items().countsUnpainted())
        return;
    scene::Shape shape;
    shape.outline = shapes_.read(element, kind, inside.measures, inside.isReferred);
    shape.transform = inside.toPage;
    if (shape.outline)
        canvas_.addUnpainted(std::move(shape), element);
}

/// The outline moves to the page, where a unit of the stroke is a pixel.
void ShapeDrawer::fixStrokeWidth(scene::Shape& shape, const Surroundings& inside) {
    if (!isPainted(shape.stroke))
        return;
    if (inside.isReferred) {
        warnings_.add("lines of referenced shapes are scaled with them (vector-effect)");
        return;
    }
    constexpr double kPointsPerPixel = 0.75;
    const scene::Affine toPixels =
        scene::Affine::scaling(1 / kPointsPerPixel, 1 / kPointsPerPixel) * shape.transform;
    shape.outline = std::make_shared<const scene::Outline>(shape.outline->transformed(toPixels));
    shape.fill = scene::moved(shape.fill, toPixels);
    shape.stroke = scene::moved(shape.stroke, toPixels);
    shape.transform = scene::Affine::scaling(kPointsPerPixel, kPointsPerPixel);
}

void ShapeDrawer::draw(ElementKind kind, pugi::xml_node element, const Surroundings& inside) {
    const ComputedStyle& style = inside.style;
    if (!canvas_.canShow(inside.toPage))
        return;
    const bool isMarked = MarkerReader::hasMarkers(kind, style);
    if (!style.isVisible || (!isMarked && !isPainted(style.fill) && !isPainted(style.stroke))) {
        addUnpainted(kind, element, inside);
        return;
    }
    const SharedOutline outline = shapes_.read(element, kind, inside.measures, inside.isReferred);
    if (!outline)
        return;
    scene::Shape shape =
        paints_.resolve(style, {boxFor(style, *outline), inside.measures, inside.depth});
    shape.transform = inside.toPage;
    shape.outline = outline;
    if (style.hasFixedStrokeWidth)
        fixStrokeWidth(shape, inside);
    softenFineDashes(shape);
    const auto drawLayer = [&](PaintLayer layer) {
        if (layer == PaintLayer::fill)
            canvas_.add(shape.onlyFill(), element);
        else if (layer == PaintLayer::stroke)
            canvas_.add(shape.onlyStroke(), element);
        else if (isMarked)
            markers_.draw(element, *outline, inside);
    };
    if (style.paintOrder != ComputedStyle().paintOrder) {
        std::ranges::for_each(style.paintOrder, drawLayer);
        return;
    }
    canvas_.add(std::move(shape), element);
    drawLayer(PaintLayer::markers);
}

}  // namespace psrender::svg
