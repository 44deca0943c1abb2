#include "psrender/svg/paint/GradientReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/TransformParser.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace psrender::svg {

using scene::Affine;
using scene::ColorStop;
using scene::Gradient;
using scene::Paint;

namespace {

constexpr std::size_t kMostStops = 2000;
constexpr Length kNothing{0, true};
constexpr Length kHalf{0.5, true};
constexpr Length kAll{1, true};

scene::Spread spreadOf(std::string_view text) {
    if (text == "repeat")
        return scene::Spread::repeat;
    return text == "reflect" ? scene::Spread::reflect : scene::Spread::pad;
}

Paint solid(const ColorStop& stop) {
    return {stop.color, stop.opacity};
}

bool isOneColor(const std::vector<ColorStop>& stops) {
    return std::ranges::all_of(stops, [&](const ColorStop& stop) {
        return stop.color == stops.front().color && stop.opacity == stops.front().opacity;
    });
}

/// Without a length everything lies behind the end.
bool hasLength(const Gradient& gradient) {
    const bool isMoving = gradient.start != gradient.end;
    if (gradient.kind == Gradient::Kind::linear)
        return isMoving;
    return gradient.endRadius > 0 && (isMoving || gradient.endRadius != gradient.startRadius);
}

std::optional<Affine> readTransform(std::string_view text) {
    const Affine map = parseTransform(text).value_or(Affine());
    const double determinant = map.determinant();
    if (determinant == 0 || !std::isfinite(determinant))
        return std::nullopt;
    return map;
}

}  // namespace

std::optional<Paint> GradientReader::read(pugi::xml_node element, const PaintPlace& place) {
    const PaintServer server(tree_, element);
    const bool goesByBox = trimmed(server.attribute("gradientUnits")) != "userSpaceOnUse";
    const auto map = readTransform(server.attribute("gradientTransform"));
    if ((goesByBox && !place.box) || !map)
        return std::nullopt;
    const auto stops = stopsOf(server.withChild(ElementKind::stop));
    if (stops->empty())
        return Paint{};
    Gradient gradient;
    gradient.stops = stops;
    gradient.spread = spreadOf(trimmed(server.attribute("spreadMethod")));
    gradient.transform = goesByBox ? mapToBox(*place.box) * *map : *map;
    const Measures measures = goesByBox ? Measures{1, 1, place.measures.fontSize} : place.measures;
    if (std::string_view(element.name()) == "linearGradient")
        readLine(server, measures, gradient);
    else
        readCircles(server, measures, gradient);
    if (!hasLength(gradient) || isOneColor(*stops))
        return solid(stops->back());
    return Paint{std::make_shared<const Gradient>(std::move(gradient))};
}

void GradientReader::readLine(const PaintServer& server, const Measures& measures,
                              Gradient& gradient) {
    const auto get = [&](const char* name, Axis axis, const Length& usual) {
        return server.length(name, axis, usual, measures, warnings_);
    };
    gradient.start = {get("x1", Axis::horizontal, kNothing), get("y1", Axis::vertical, kNothing)};
    gradient.end = {get("x2", Axis::horizontal, kAll), get("y2", Axis::vertical, kNothing)};
}

/// A start that touches the end is drawn a little into it, as nothing could be seen of its side
/// there. Beyond that it makes a cone.
void GradientReader::readCircles(const PaintServer& server, const Measures& measures,
                                 Gradient& gradient) {
    constexpr double kClosest = 0.995;  // to the outer circle
    constexpr double kTouching = 1.0001;
    const auto get = [&](const char* name, Axis axis, const Length& usual) {
        return server.length(name, axis, usual, measures, warnings_);
    };
    gradient.kind = Gradient::Kind::radial;
    gradient.end = {get("cx", Axis::horizontal, kHalf), get("cy", Axis::vertical, kHalf)};
    const double radius = get("r", Axis::other, kHalf);
    gradient.endRadius = radius < 0 ? kHalf.resolve(measures, Axis::other) : radius;
    gradient.startRadius = std::max(0.0, get("fr", Axis::other, kNothing));
    const double x = get("fx", Axis::horizontal, {gradient.end.x}) - gradient.end.x;
    const double y = get("fy", Axis::vertical, {gradient.end.y}) - gradient.end.y;
    const double farthest = std::max(0.0, gradient.endRadius - gradient.startRadius) * kClosest;
    const double distance = std::hypot(x, y);
    const bool isTouching =
        distance > farthest && distance + gradient.startRadius <= gradient.endRadius * kTouching;
    const double share = isTouching ? farthest / distance : 1;
    gradient.start = {gradient.end.x + x * share, gradient.end.y + y * share};
}

std::shared_ptr<const GradientReader::Stops> GradientReader::stopsOf(pugi::xml_node holder) {
    auto& known = stops_[holder.internal_object()];
    if (!known)
        known = std::make_shared<const Stops>(readStops(holder));
    return known;
}

GradientReader::Stops GradientReader::readStops(pugi::xml_node holder) {
    Stops stops;
    for (auto child = firstChildElement(holder); child; child = nextElement(child)) {
        if (elementKind(child.name()) != ElementKind::stop)
            continue;
        if (stops.size() == kMostStops) {
            warnings_.add("gradients end at their 2000th stop");
            break;
        }
        ColorStop stop = readStop(child);
        if (!stops.empty())
            stop.position = std::max(stop.position, stops.back().position);
        stops.push_back(stop);
    }
    return stops;
}

ColorStop GradientReader::readStop(pugi::xml_node element) {
    const ComputedStyle style = styles_.resolveInPlace(element);
    const auto& value = style.stopColor;
    const Rgba color = value.kind == PlainPaint::Kind::color ? value.color : style.color;
    const double position = parseOpacity(element.attribute("offset").value()).value_or(0);
    return {position, color.color, color.alpha * style.stopOpacity};
}

}  // namespace psrender::svg
