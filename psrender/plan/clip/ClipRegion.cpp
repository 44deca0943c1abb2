#include "psrender/plan/clip/ClipRegion.h"

#include <utility>

namespace psrender::plan {

using scene::Rect;

namespace {

/// Nothing shows of what sticks out by less, in points.
constexpr double kRounding = 0.001;

}  // namespace

ClipRegion::Place ClipRegion::find(const Rect& box) const {
    if (polygons_.empty() || !box.meets(box_))
        return Place::outside;
    if (!box_.grown(kRounding).contains(box))
        return Place::across;
    if (isRectangle_)
        return Place::inside;
    if (polygons_.hasBorderIn(box))
        return Place::across;
    return contains({box.x, box.y}) ? Place::inside : Place::outside;
}

ClipRegion ClipRegion::within(const ClipRegion& other, Budget& budget) const {
    if (isRectangle_ && other.isRectangle_) {
        const auto common = box_.common(other.box_);
        return common ? ClipRegion(*common) : ClipRegion(Polygons());
    }
    auto common = polygons_.common(other.polygons_, budget);
    return common ? ClipRegion(std::move(*common)) : *this;
}

}  // namespace psrender::plan
