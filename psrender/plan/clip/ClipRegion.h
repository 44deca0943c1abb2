#pragma once

#include "psrender/plan/geometry/Polygons.h"
#include "psrender/scene/Geometry.h"

#include <cstdint>

namespace psrender::plan {

/// An area of the page, quick to be asked what lies in it.
class ClipRegion {
public:
    enum class Place : std::uint8_t { inside, outside, across };

    explicit ClipRegion(const scene::Rect& box) : box_(box), polygons_(box) {}
    /// Polygons in their simplest form.
    explicit ClipRegion(Polygons polygons)
        : box_(polygons.box().value_or(scene::Rect())),
          polygons_(std::move(polygons)),
          isRectangle_(false) {}

    [[nodiscard]] const scene::Rect& box() const { return box_; }
    [[nodiscard]] const Polygons& polygons() const { return polygons_; }

    /// Where all of `box` lies. `across` may be a box that is outside of polygons.
    [[nodiscard]] Place find(const scene::Rect& box) const;
    [[nodiscard]] bool contains(scene::Point p) const { return polygons_.contains(p); }
    /// What both regions have in common; if that would take too long, this one.
    [[nodiscard]] ClipRegion within(const ClipRegion& other, Budget& budget) const;

private:
    scene::Rect box_;
    Polygons polygons_;
    bool isRectangle_ = true;
};

}  // namespace psrender::plan
