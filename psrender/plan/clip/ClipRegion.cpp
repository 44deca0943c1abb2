#include "psrender/plan/clip/ClipRegion.h"

#include "psrender/plan/geometry/Boxes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

using ClipperLib::IntPoint;
using scene::Point;
using scene::Rect;

namespace {

/// Nothing shows of what sticks out by less, in points.
constexpr double kRounding = 0.001;

IntPoint toGrid(Point p) {
    return toPolygons(Rect{p.x, p.y, 0, 0})[0][0];
}

/// Whether a line has a part within the box, or may have one.
bool mayMeet(IntPoint a, IntPoint b, IntPoint low, IntPoint high) {
    if (std::max(a.X, b.X) < low.X || std::min(a.X, b.X) > high.X || std::max(a.Y, b.Y) < low.Y ||
        std::min(a.Y, b.Y) > high.Y)
        return false;
    const auto side = [&](ClipperLib::cInt x, ClipperLib::cInt y) {
        const auto area = (b.X - a.X) * (y - a.Y) - (b.Y - a.Y) * (x - a.X);
        return area > 0 ? 1 : area < 0 ? -1 : 0;
    };
    return std::abs(side(low.X, low.Y) + side(low.X, high.Y) + side(high.X, low.Y) +
                    side(high.X, high.Y)) != 4;
}

}  // namespace

ClipRegion::Place ClipRegion::find(const Rect& box) const {
    if (polygons_.empty() || !commonBox(box, box_))
        return Place::outside;
    if (!psrender::plan::contains(grown(box_, kRounding), box))
        return Place::across;
    if (isRectangle_)
        return Place::inside;
    if (hasBorderIn(box))
        return Place::across;
    return contains({box.x, box.y}) ? Place::inside : Place::outside;
}

bool ClipRegion::hasBorderIn(const Rect& box) const {
    const IntPoint low = toGrid({box.x, box.y});
    const IntPoint high = toGrid({box.x + box.width, box.y + box.height});
    for (const auto& polygon : polygons_)
        for (std::size_t i = 0; i < polygon.size(); ++i)
            if (mayMeet(polygon[i], polygon[(i + 1) % polygon.size()], low, high))
                return true;
    return false;
}

/// Holes are inside of outer borders, so every border that is crossed changes sides.
bool ClipRegion::contains(Point p) const {
    const IntPoint spot = toGrid(p);
    return std::ranges::count_if(polygons_,
                                 [spot](const auto& polygon) {
                                     return ClipperLib::PointInPolygon(spot, polygon) != 0;
                                 }) %
               2 ==
           1;
}

std::optional<Polygons> ClipRegion::cut(Silhouette silhouette, std::size_t* work) const {
    return combine(ClipperLib::ctIntersection, std::move(silhouette.polygons), silhouette.rule,
                   polygons_, work);
}

ClipRegion ClipRegion::within(const ClipRegion& other) const {
    if (isRectangle_ && other.isRectangle_) {
        const auto common = commonBox(box_, other.box_);
        return common ? ClipRegion(*common) : ClipRegion(Polygons());
    }
    auto common = cut({other.polygons_});
    return common ? ClipRegion(std::move(*common)) : *this;
}

}  // namespace psrender::plan
