#include "psrender/svg/elements/MarkerReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/elements/References.h"
#include "psrender/svg/path/PathParser.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"
#include "psrender/svg/values/ViewBox.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"

#include <numbers>
#include <optional>
#include <string_view>
#include <vector>

namespace psrender::svg {

using scene::Affine;
using scene::Outline;
using scene::Point;
using scene::Rect;

namespace {

constexpr double kUsualSize = 3;

Rect sizeOf(pugi::xml_node marker, const Measures& measures, Warnings& warnings) {
    const LengthReader lengths(marker, measures, warnings);
    return {0, 0, lengths.findSize("markerWidth", Axis::horizontal).value_or(kUsualSize),
            lengths.findSize("markerHeight", Axis::vertical).value_or(kUsualSize)};
}

/// The marker's own viewBox, or one that changes nothing.
Rect boxOf(pugi::xml_node marker, const Rect& size) {
    const auto box = parseViewBox(marker.attribute("viewBox").value());
    return box && box->width > 0 && box->height > 0 ? *box : size;
}

/// Degrees in a unit of angles.
double degreesOf(std::string_view unit) {
    if (unit == "rad")
        return 180 / std::numbers::pi;
    if (unit == "turn")
        return 360;
    return unit == "grad" ? 0.9 : 1;
}

double angleOf(pugi::xml_node marker, const MarkerVertex& vertex, bool isStart) {
    const std::string_view orient = trimmed(marker.attribute("orient").value());
    if (orient == "auto")
        return vertex.angle();
    if (orient == "auto-start-reverse")
        return vertex.angle() + (isStart ? 180 : 0);
    NumberScanner scanner(orient);
    return scanner.number().value_or(0) * degreesOf(scanner.word());
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

bool MarkerReader::hasMarkers(ElementKind kind, const ComputedStyle& style) {
    const bool takesMarkers = kind == ElementKind::path || kind == ElementKind::line ||
                              kind == ElementKind::polyline || kind == ElementKind::polygon;
    return takesMarkers &&
           !(style.markerStart.empty() && style.markerMid.empty() && style.markerEnd.empty());
}

void MarkerReader::draw(pugi::xml_node element, const Outline& outline,
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

void MarkerReader::drawMarker(pugi::xml_node marker, const MarkerVertex& vertex, bool isStart,
                              const Surroundings& inside) {
    if (elementKind(marker.name()) != ElementKind::marker)
        return;
    if (references_.isWithin(marker)) {
        warnings_.add("markers on what they are made of are left out (<marker>)");
        return;
    }
    const bool goesByStroke =
        std::string_view(marker.attribute("markerUnits").value()) != "userSpaceOnUse";
    const double scale =
        goesByStroke ? inside.style.strokeWidth.resolve(inside.measures, Axis::other) : 1;
    const Affine toPage = inside.toPage * placeOf(marker, vertex, angleOf(marker, vertex, isStart),
                                                  scale, inside.measures, warnings_);
    if (!canvas_.canShow(toPage))
        return;
    references_.drawWithin(marker,
                           [&] { canvas_.place(symbolOf(marker, inside), toPage, marker); });
}

/// A marker's content inherits from where the marker stands, so that it looks the same on every
/// path.
const Symbol& MarkerReader::symbolOf(pugi::xml_node marker, const Surroundings& inside) {
    const Rect box = boxOf(marker, sizeOf(marker, inside.measures, warnings_));
    ComputedStyle style = styles_.resolveInPlace(marker);
    ComputedStyle context = inside.style;
    context.makeContext();
    style.contextFill = context.contextFill;
    style.contextStroke = context.contextStroke;
    const Measures measures{box.width, box.height, style.fontSize};
    return references_.symbolOf(marker, {style, measures, box}, [&] {
        canvas_.items().group(
            style.opacity,
            style.overflows ? std::nullopt : std::optional(scene::rectangleClip(box, {})), [&] {
                walker_.drawChildren(marker, {style, {}, measures, inside.depth + 1, true});
            });
    });
}

}  // namespace psrender::svg
