#include "psrender/plan/gradient/NativeGradients.h"

#include "psrender/plan/geometry/Box.h"
#include "psrender/plan/geometry/Boxes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>

namespace psrender::plan {

using scene::Color;
using scene::ColorStop;
using scene::Gradient;
using scene::Point;
using scene::Rect;

namespace {

/// Each use of a native gradient writes them anew; the list must end somewhere.
constexpr std::size_t kMostColors = 96;
/// Farther out, positions between 0 and 1 are too close to each other.
constexpr double kFarthest = 1000;

bool isPlain(const Gradient& gradient) {
    const bool isCentred =
        gradient.kind == Gradient::Kind::linear || gradient.start == gradient.end;
    return isCentred && gradient.spread == scene::Spread::pad;
}

/// What part of the gradient is wanted, 0 being its start and 1 its end.
struct Part {
    double from = 0;
    double to = 1;
};

Part linearPart(const Gradient& gradient, const Rect& box) {
    const double x = gradient.end.x - gradient.start.x;
    const double y = gradient.end.y - gradient.start.y;
    const scene::Affine along{x, y, -y, x, gradient.start.x, gradient.start.y};
    const Rect normal = mappedBox(box, (gradient.transform * along).inverse());
    const double margin = normal.width / 100;
    return {std::min(0.0, normal.x - margin), std::max(1.0, normal.x + normal.width + margin)};
}

Part radialPart(const Gradient& gradient, const Rect& box) {
    const Rect own = mappedBox(box, gradient.transform.inverse());
    const double x = std::max(gradient.end.x - own.x, own.x + own.width - gradient.end.x);
    const double y = std::max(gradient.end.y - own.y, own.y + own.height - gradient.end.y);
    const double length = gradient.endRadius - gradient.startRadius;
    const double reach = std::hypot(x, y) * 1.01;
    return {-gradient.startRadius / length, std::max(1.0, (reach - gradient.startRadius) / length)};
}

/// The same look with other ends.
Gradient withEnds(const Gradient& gradient, const Part& part) {
    const auto at = [&](double t) {
        return Point{std::lerp(gradient.start.x, gradient.end.x, t),
                     std::lerp(gradient.start.y, gradient.end.y, t)};
    };
    Gradient result = gradient;
    result.start = at(part.from);
    result.end = at(part.to);
    result.startRadius =
        std::max(0.0, std::lerp(gradient.startRadius, gradient.endRadius, part.from));
    result.endRadius = std::lerp(gradient.startRadius, gradient.endRadius, part.to);
    auto stops = *gradient.stops;
    for (ColorStop& stop : stops)
        stop.position = std::clamp((stop.position - part.from) / (part.to - part.from), 0.0, 1.0);
    result.stops = std::make_shared<const std::vector<ColorStop>>(std::move(stops));
    return result;
}

}  // namespace

std::optional<Gradient> NativeGradients::find(const Gradient& gradient, const Rect& box,
                                              std::size_t mostColors) {
    if (!isPlain(gradient))
        return std::nullopt;
    const Part part = gradient.kind == Gradient::Kind::linear ? linearPart(gradient, box)
                                                              : radialPart(gradient, box);
    if (!(part.to - part.from < kFarthest))
        return std::nullopt;
    const auto place = placeOf(*gradient.stops, gradient.kind == Gradient::Kind::radial,
                               std::min(mostColors, kMostColors));
    if (!place)
        return std::nullopt;
    Gradient result = withEnds(gradient, part);
    result.stops = std::make_shared<const Stops>(withAllColors(*result.stops, *place));
    return result;
}

/// Between two gradients stand the last colour of the one and the first of the other once more:
/// what lies before and behind a gradient's own stops stays plain.
std::optional<std::size_t> NativeGradients::placeOf(const Stops& stops, bool isRadial,
                                                    std::size_t mostColors) {
    if (colors_.size() > mostColors)
        return std::nullopt;
    for (const auto& [begin, count] : runs_)
        if ((begin == 0 || !isRadial) &&
            std::ranges::equal(stops, std::span(colors_).subspan(begin, count), {},
                               &ColorStop::color))
            return begin;
    if ((isRadial && !colors_.empty()) || colors_.size() + stops.size() + 2 > mostColors)
        return std::nullopt;
    if (!colors_.empty())
        colors_.insert(colors_.end(), {Color(colors_.back()), stops.front().color});
    const std::size_t begin = colors_.size();
    std::ranges::transform(stops, std::back_inserter(colors_), &ColorStop::color);
    runs_.emplace_back(begin, stops.size());
    return begin;
}

NativeGradients::Stops NativeGradients::withAllColors(const Stops& stops, std::size_t place) const {
    Stops result;
    for (std::size_t i = 0; i < colors_.size(); ++i)
        result.push_back({i < place ? 0.0 : 1.0, colors_[i], 1});
    std::ranges::copy(stops, result.begin() + static_cast<std::ptrdiff_t>(place));
    return result;
}

}  // namespace psrender::plan
