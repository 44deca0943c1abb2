#include "psrender/plan/gradient/GradientTile.h"

#include "psrender/plan/geometry/Box.h"
#include "psrender/plan/geometry/Boxes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::Gradient;
using scene::Outline;
using scene::Point;
using scene::Rect;

namespace {

constexpr double kFinest = 0.5;    // points: bands narrower than this are not seen
constexpr double kMargin = 1;      // points: interpreters are not exact at a tile's border
constexpr double kLeastUnits = 1;  // of a tile along its gradient
constexpr double kMostUnits = 8192;
constexpr double kFarthest = 1e6;  // times the gradient's length

/// The space in which a linear gradient runs along x from 0 to 1, and a radial one outwards to the
/// circle of radius 1 around the origin.
Affine normalSpace(const Gradient& gradient) {
    const Point& start = gradient.start;
    const Point& end = gradient.end;
    if (gradient.kind == Gradient::Kind::radial)
        return {gradient.endRadius, 0, 0, gradient.endRadius, end.x, end.y};
    const double x = end.x - start.x;
    const double y = end.y - start.y;
    return {x, y, -y, x, start.x, start.y};
}

/// How long the gradient is on the page, across its bands.
double lengthOnPage(const Gradient& gradient, const Affine& toPage) {
    if (gradient.kind == Gradient::Kind::radial)
        return std::max(std::hypot(toPage.a, toPage.b), std::hypot(toPage.c, toPage.d));
    return std::abs(toPage.determinant()) / std::hypot(toPage.c, toPage.d);
}

double unitsFor(double length) {
    return std::clamp(std::exp2(std::ceil(std::log2(length))), kLeastUnits, kMostUnits);
}

/// Numbers that shapes of similar size share, with room between them and `value`.
double roundedDown(double value) {
    const double grain = std::exp2(std::floor(std::log2(std::max(1.0, std::abs(value))))) / 16;
    return std::floor(value / grain - 0.25) * grain;
}

Rect roundedOutwards(const Rect& box) {
    const double x = roundedDown(box.x);
    const double y = roundedDown(box.y);
    return {x, y, -roundedDown(-box.x - box.width) - x, -roundedDown(-box.y - box.height) - y};
}

scene::Paint solid(const scene::Color& color) {
    return {scene::Paint::Kind::solid, color};
}

scene::Shape rectangle(const Rect& box, const scene::Color& color) {
    Outline outline;
    outline.moveTo({box.x, box.y});
    outline.lineTo({box.x + box.width, box.y});
    outline.lineTo({box.x + box.width, box.y + box.height});
    outline.lineTo({box.x, box.y + box.height});
    scene::Shape shape;
    shape.outline = std::make_shared<Outline>(std::move(outline));
    shape.fill = solid(color);
    return shape;
}

/// A line without length and with round caps is the shortest way to draw one.
scene::Shape disc(Point centre, double radius, const scene::Color& color) {
    Outline outline;
    outline.moveTo(centre);
    outline.lineTo(centre);
    scene::Shape shape;
    shape.outline = std::make_shared<Outline>(std::move(outline));
    shape.stroke = solid(color);
    shape.strokeStyle.width = 2 * radius;
    shape.strokeStyle.cap = scene::Cap::round;
    return shape;
}

/// The circles of a radial gradient in its normal space.
class Circles {
public:
    explicit Circles(const Gradient& gradient)
        : focus_{(gradient.start.x - gradient.end.x) / gradient.endRadius,
                 (gradient.start.y - gradient.end.y) / gradient.endRadius},
          innermost_(gradient.startRadius / gradient.endRadius) {}

    [[nodiscard]] Point centre(double t) const { return {focus_.x * (1 - t), focus_.y * (1 - t)}; }
    [[nodiscard]] double radius(double t) const { return innermost_ + t * (1 - innermost_); }
    /// Where the circle has no size.
    [[nodiscard]] double least() const { return -innermost_ / (1 - innermost_); }
    /// Where the circle holds all of `box`.
    [[nodiscard]] double most(const Rect& box) const {
        double t = 1;
        while (t < kFarthest && !holds(t, box))
            t *= 1.25;
        return t;
    }

private:
    [[nodiscard]] bool holds(double t, const Rect& box) const {
        const Point c = centre(t);
        const double x = std::max(c.x - box.x, box.x + box.width - c.x);
        const double y = std::max(c.y - box.y, box.y + box.height - c.y);
        return std::hypot(x, y) <= radius(t);
    }

    Point focus_;
    double innermost_;
};

/// From the normal space to the tile, whose corner is at the origin. A linear gradient is the same
/// all along y, so that its tiles all have the same height.
Affine toTile(const Gradient& gradient, const Rect& box, double units) {
    const double yUnits = gradient.kind == Gradient::Kind::linear ? units / box.height : units;
    return Affine::scaling(units, yUnits) * Affine::translation(-box.x, -box.y);
}

std::vector<scene::Item> linearBands(const Gradient& gradient, const Rect& box, double units,
                                     double levels) {
    const Stretch stretch{box.x, box.x + box.width, kFinest / units, levels};
    const Rect tile = mappedBox(box, toTile(gradient, box, units));
    std::vector<scene::Item> items;
    for (const Band& band : bandsOf(*gradient.stops, gradient.spread, stretch)) {
        const double x = (band.begin - box.x) * units;
        items.emplace_back(rectangle({x, 0, tile.width - x, tile.height}, band.color));
    }
    return items;
}

/// From the outermost to the innermost.
std::vector<scene::Item> radialBands(const Gradient& gradient, const Rect& box, double units,
                                     double levels) {
    const Circles circles(gradient);
    const double most = gradient.spread == scene::Spread::pad ? 1.01 : circles.most(box);
    const auto bands =
        bandsOf(*gradient.stops, gradient.spread, {circles.least(), most, kFinest / units, levels});
    const Affine map = toTile(gradient, box, units);
    std::vector<scene::Item> items{rectangle(mappedBox(box, map), bands.back().color)};
    for (std::size_t i = bands.size() - 1; i > 0; --i) {
        const double t = bands[i].begin;
        items.emplace_back(
            disc(map.apply(circles.centre(t)), circles.radius(t) * units, bands[i - 1].color));
    }
    return items;
}

}  // namespace

std::shared_ptr<const scene::Pattern> GradientTiles::tileFor(const Gradient& gradient,
                                                             const Rect& box, const Affine& toPage,
                                                             double levels) {
    const bool isLinear = gradient.kind == Gradient::Kind::linear;
    const Affine normal = gradient.transform * normalSpace(gradient);
    const double units = unitsFor(lengthOnPage(gradient, toPage * normal));
    const Rect area = roundedOutwards(grown(mappedBox(box, normal.inverse()), kMargin / units));
    if (!(std::max({std::abs(area.x), std::abs(area.y), area.width, area.height}) < kFarthest))
        return nullptr;
    const Affine map = toTile(gradient, area, units);
    auto pattern = std::make_shared<scene::Pattern>();
    pattern->tile = mappedBox(area, map);
    pattern->transform = normal * map.inverse();
    Key key{units,
            area.x,
            area.width,
            static_cast<double>(gradient.kind),
            static_cast<double>(gradient.spread),
            levels};
    if (!isLinear) {
        const Point focus = normal.inverse().apply(gradient.transform.apply(gradient.start));
        key.insert(key.end(), {area.y, area.height, focus.x, focus.y,
                               gradient.startRadius / gradient.endRadius});
    }
    Known& known = known_[{gradient.stops.get(), std::move(key)}];
    if (!known.content) {
        auto content = std::make_shared<scene::ItemList>();
        content->items = isLinear ? linearBands(gradient, area, units, levels)
                                  : radialBands(gradient, area, units, levels);
        known = {gradient.stops, std::move(content)};
    }
    pattern->content = known.content;
    return pattern;
}

}  // namespace psrender::plan
