// Markers: symbols that stand on the vertices of a path.

#include "psrender/svg/elements/SceneBuilder.h"
#include "psrender/svg/path/PathParser.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"
#include "psrender/svg/values/ViewBox.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace psrender::svg {

using scene::Affine;
using scene::Outline;
using scene::Point;
using scene::Rect;

namespace {

constexpr double usualSize = 3;

Rect sizeOf(pugi::xml_node marker, const Measures& measures, Warnings& warnings) {
    const LengthReader lengths(marker, measures, warnings);
    return {0, 0, lengths.findSize("markerWidth", Axis::horizontal).value_or(usualSize),
            lengths.findSize("markerHeight", Axis::vertical).value_or(usualSize)};
}

/// The marker's own viewBox, or one that changes nothing.
Rect boxOf(pugi::xml_node marker, const Rect& size) {
    const auto box = parseViewBox(marker.attribute("viewBox").value());
    return box && box->width > 0 && box->height > 0 ? *box : size;
}

double angleOf(pugi::xml_node marker, const MarkerVertex& vertex, bool isStart) {
    const std::string_view orient = trimmed(marker.attribute("orient").value());
    if (orient == "auto")
        return vertex.angle();
    if (orient == "auto-start-reverse")
        return vertex.angle() + (isStart ? 180 : 0);
    NumberScanner scanner(orient);
    return scanner.number().value_or(0);
}

/// From the marker's content to the element that it stands on.
Affine placeOf(pugi::xml_node marker, const MarkerVertex& vertex, double angle, double scale,
               const Measures& measures, Warnings& warnings) {
    const Rect size = sizeOf(marker, measures, warnings);
    const Affine fit =
        fitViewBox(boxOf(marker, size), size, marker.attribute("preserveAspectRatio").value());
    const LengthReader lengths(marker, measures, warnings);
    const Point reference =
        fit.apply({lengths.get("refX", Axis::horizontal), lengths.get("refY", Axis::vertical)});
    return Affine::translation(vertex.at.x, vertex.at.y) * Affine::rotation(angle) *
           Affine::scaling(scale, scale) * Affine::translation(-reference.x, -reference.y) * fit;
}

}  // namespace

bool SceneBuilder::hasMarkers(ElementKind kind, const ComputedStyle& style) {
    const bool takesMarkers = kind == ElementKind::path || kind == ElementKind::line ||
                              kind == ElementKind::polyline || kind == ElementKind::polygon;
    return takesMarkers &&
           !(style.markerStart.empty() && style.markerMid.empty() && style.markerEnd.empty());
}

void SceneBuilder::drawMarkers(pugi::xml_node element, const Outline& outline,
                               const Surroundings& inside) {
    const ComputedStyle& style = inside.style;
    std::vector<std::size_t> joints;
    if (!style.markerMid.empty() && elementKind(element.name()) == ElementKind::path)
        joints = parsePath(element.attribute("d").value()).joints;
    const std::vector<MarkerVertex> vertices = markerVertices(outline, joints);
    if (vertices.empty())
        return;
    const auto draw = [&](std::string_view id, const MarkerVertex& vertex, bool isStart) {
        if (const pugi::xml_node marker = tree_.byId(id))
            drawMarker(marker, vertex, isStart, inside);
    };
    draw(style.markerStart, vertices.front(), true);
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i)
        draw(style.markerMid, vertices[i], false);
    draw(style.markerEnd, vertices.back(), false);
}

void SceneBuilder::drawMarker(pugi::xml_node marker, const MarkerVertex& vertex, bool isStart,
                              const Surroundings& inside) {
    const bool isWithinItself = std::ranges::find(targets_, marker) != targets_.end();
    if (elementKind(marker.name()) != ElementKind::marker || isWithinItself)
        return;
    const bool goesByStroke =
        std::string_view(marker.attribute("markerUnits").value()) != "userSpaceOnUse";
    const double scale =
        goesByStroke ? inside.style.strokeWidth.resolve(inside.measures, Axis::other) : 1;
    const Affine toPage = inside.toPage * placeOf(marker, vertex, angleOf(marker, vertex, isStart),
                                                  scale, inside.measures, warnings_);
    if (!canBeDrawn(toPage))
        return;
    targets_.push_back(marker);
    place(marker, symbolOfMarker(marker, inside), toPage);
    targets_.pop_back();
}

/// A marker's content inherits from where the marker stands, so that it looks the same on every
/// path.
const Symbol& SceneBuilder::symbolOfMarker(pugi::xml_node marker, const Surroundings& inside) {
    const Rect box = boxOf(marker, sizeOf(marker, inside.measures, warnings_));
    const ComputedStyle style = styles_.resolveInPlace(marker);
    const Measures measures{box.width, box.height, style.fontSize};
    return symbolOf(marker, {style, measures, box}, [&] {
        const auto group = items_.beginGroup(
            style.opacity,
            style.overflows ? std::nullopt : std::optional(scene::rectangleClip(box, {})));
        drawChildren(marker, {style, {}, measures, inside.depth + 1, true});
        items_.endGroup(group);
    });
}

}  // namespace psrender::svg
