#include "psrender/svg/elements/PatternReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/References.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/TransformParser.h"
#include "psrender/svg/values/ViewBox.h"
#include "psrender/svg/xml/XmlTree.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>
#include <utility>

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

constexpr double kLargestNumber = 1e12;

bool goesByBox(const PaintServer& server, const char* name, bool isUsual) {
    const std::string_view units = trimmed(server.attribute(name));
    return units.empty() ? isUsual : units == "objectBoundingBox";
}

/// One tile in the space of the painted element; nothing if it is empty.
std::optional<Rect> tileOf(const PaintServer& server, const PaintPlace& place, Warnings& warnings) {
    constexpr Length kZero{};
    const bool byBox = goesByBox(server, "patternUnits", true);
    if (byBox && !place.box)
        return std::nullopt;
    const Measures measures = byBox ? Measures{1, 1, place.measures.fontSize} : place.measures;
    const Rect around = byBox ? *place.box : Rect{0, 0, 1, 1};
    const auto get = [&](const char* name, Axis axis) {
        return server.length(name, axis, kZero, measures, warnings);
    };
    const Rect tile{around.x + get("x", Axis::horizontal) * around.width,
                    around.y + get("y", Axis::vertical) * around.height,
                    get("width", Axis::horizontal) * around.width,
                    get("height", Axis::vertical) * around.height};
    return tile.width > 0 && tile.height > 0 ? std::optional(tile) : std::nullopt;
}

/// From the content to the tile's corner; nothing if the content shows nothing.
std::optional<Affine> mapOfContent(const PaintServer& server, const std::optional<Rect>& viewBox,
                                   const Rect& tile, const PaintPlace& place) {
    if (viewBox)
        return fitViewBox(*viewBox, {0, 0, tile.width, tile.height},
                          server.attribute("preserveAspectRatio"));
    if (!goesByBox(server, "patternContentUnits", false))
        return Affine();
    return place.box ? std::optional(Affine::scaling(place.box->width, place.box->height))
                     : std::nullopt;
}

std::optional<Rect> viewBoxOf(const PaintServer& server) {
    const auto box = parseViewBox(server.attribute("viewBox"));
    return box && box->width > 0 && box->height > 0 ? box : std::nullopt;
}

std::shared_ptr<const scene::ItemList> placed(const Symbol& symbol, const Affine& map) {
    if (map == Affine())
        return symbol.items;
    return std::make_shared<const scene::ItemList>(
        scene::ItemList{{scene::Placement{symbol.items, map}}});
}

/// Nobody means numbers beyond; behind them not even sums of two can be written.
bool isWithinBounds(const Affine& map, const Rect& tile) {
    const auto numbers = {map.a, map.b, map.c, map.d, map.e, map.f, tile.width, tile.height};
    return std::ranges::all_of(numbers, [](double n) { return std::abs(n) <= kLargestNumber; });
}

bool isVisible(const Affine& map) {
    return map.isFinite() && map.determinant() != 0 && std::isfinite(map.determinant());
}

}  // namespace

std::optional<scene::Paint> PatternReader::read(pugi::xml_node pattern, const PaintPlace& place) {
    const PaintServer server(tree_, pattern);
    const pugi::xml_node holder = server.withChild(ElementKind::unknown);
    const auto tile = tileOf(server, place, warnings_);
    const auto map = parseTransform(server.attribute("patternTransform")).value_or(Affine());
    if (!holder || !tile || !isVisible(map) || references_.isWithin(holder))
        return std::nullopt;
    const auto viewBox = viewBoxOf(server);
    const auto contentMap = mapOfContent(server, viewBox, *tile, place);
    if (!contentMap || !isVisible(*contentMap))
        return std::nullopt;
    Measures measures = place.measures;
    if (viewBox)
        measures = {viewBox->width, viewBox->height, measures.fontSize};
    auto result = std::make_shared<scene::Pattern>();
    result->tile = {0, 0, tile->width, tile->height};
    result->transform = map * Affine::translation(tile->x, tile->y);
    if (!isWithinBounds(result->transform, *tile)) {
        warnings_.add("patterns with numbers beyond all bounds are left out (<pattern>)");
        return scene::Paint();
    }
    const std::string_view overflow = trimmed(server.attribute("overflow"));
    result->isClipped = overflow != "visible" && overflow != "auto";
    references_.drawWithin(holder, [&] {
        result->content = placed(symbolOf(holder, measures, place.depth), *contentMap);
    });
    if (result->content->items.empty())
        return scene::Paint();
    return scene::Paint{std::shared_ptr<const scene::Pattern>(std::move(result))};
}

/// A pattern's content inherits from where the pattern stands.
const Symbol& PatternReader::symbolOf(pugi::xml_node holder, const Measures& measures,
                                      std::size_t depth) {
    const ComputedStyle style = styles_.resolveInPlace(holder);
    const Measures own{measures.width, measures.height, style.fontSize};
    return references_.symbolOf(holder, {style, own, std::nullopt}, [&] {
        walker_.drawChildren(holder, {style, {}, own, depth + 1, true});
    });
}

}  // namespace psrender::svg
