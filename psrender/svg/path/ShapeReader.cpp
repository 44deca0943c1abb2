#include "psrender/svg/path/ShapeReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/path/PathParser.h"
#include "psrender/svg/path/ShapeOutlines.h"
#include "psrender/svg/xml/LengthReader.h"

#include <algorithm>

namespace psrender::svg {

using scene::Outline;
using scene::Rect;

namespace {

/// One missing radius is as the other; both are at most half the side.
Outline readRect(const LengthReader& lengths) {
    const Rect rect{lengths.get("x", Axis::horizontal), lengths.get("y", Axis::vertical),
                    lengths.findSize("width", Axis::horizontal).value_or(0),
                    lengths.findSize("height", Axis::vertical).value_or(0)};
    if (rect.width == 0 || rect.height == 0)
        return {};
    const auto radiusX = lengths.findSize("rx", Axis::horizontal);
    const auto radiusY = lengths.findSize("ry", Axis::vertical);
    return rectangleOutline(rect, std::min(radiusX.value_or(radiusY.value_or(0)), rect.width / 2),
                            std::min(radiusY.value_or(radiusX.value_or(0)), rect.height / 2));
}

Outline readEllipse(const LengthReader& lengths, std::optional<double> radiusX,
                    std::optional<double> radiusY) {
    const double x = radiusX.value_or(radiusY.value_or(0));
    const double y = radiusY.value_or(radiusX.value_or(0));
    if (x == 0 || y == 0)
        return {};
    return ellipseOutline({lengths.get("cx", Axis::horizontal), lengths.get("cy", Axis::vertical)},
                          x, y);
}

Outline readLine(const LengthReader& lengths) {
    return lineOutline({lengths.get("x1", Axis::horizontal), lengths.get("y1", Axis::vertical)},
                       {lengths.get("x2", Axis::horizontal), lengths.get("y2", Axis::vertical)});
}

}  // namespace

SharedOutline ShapeReader::read(pugi::xml_node element, ElementKind kind, const Measures& measures,
                                bool isReferred) {
    const auto make = [&]() -> SharedOutline {
        Outline outline = readOutline(element, kind, measures);
        return outline.empty() ? nullptr : std::make_shared<const Outline>(std::move(outline));
    };
    if (!isReferred)
        return make();
    const auto [entry, isNew] = known_.try_emplace(element.internal_object());
    Known& known = entry->second;
    if (isNew || known.measures != measures)
        known = {measures, make()};
    return known.outline;
}

Outline ShapeReader::readOutline(pugi::xml_node element, ElementKind kind,
                                 const Measures& measures) {
    const LengthReader lengths(element, measures, warnings_);
    switch (kind) {
        case ElementKind::path:
            return readPath(element);
        case ElementKind::rect:
            return readRect(lengths);
        case ElementKind::circle: {
            const auto radius = lengths.findSize("r", Axis::other);
            return readEllipse(lengths, radius, radius);
        }
        case ElementKind::ellipse:
            return readEllipse(lengths, lengths.findSize("rx", Axis::horizontal),
                               lengths.findSize("ry", Axis::vertical));
        case ElementKind::line:
            return readLine(lengths);
        default:
            return readPoints(element, kind == ElementKind::polygon);
    }
}

Outline ShapeReader::readPath(pugi::xml_node element) {
    const std::string_view data = element.attribute("d").value();
    if (data == "none")
        return {};
    ParsedPath path = parsePath(data);
    if (!path.isWhole)
        warnings_.add("paths with an error in their data are drawn up to it");
    return std::move(path.outline);
}

Outline ShapeReader::readPoints(pugi::xml_node element, bool isClosed) {
    ParsedPath path = parsePoints(element.attribute("points").value(), isClosed);
    if (!path.isWhole)
        warnings_.add("point lists with an error are drawn up to it");
    return std::move(path.outline);
}

}  // namespace psrender::svg
