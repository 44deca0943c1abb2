#pragma once

#include "psrender/plan/geometry/Silhouette.h"
#include "psrender/scene/Geometry.h"

#include <cstdint>
#include <optional>

namespace psrender::plan {

/// An area of the page within which things are shown.
class ClipRegion {
public:
    enum class Place : std::uint8_t { inside, outside, across };

    explicit ClipRegion(const scene::Rect& box) : box_(box), polygons_(toPolygons(box)) {}
    /// Polygons in their simplest form.
    explicit ClipRegion(Polygons polygons)
        : box_(boxOf(polygons).value_or(scene::Rect())),
          polygons_(std::move(polygons)),
          isRectangle_(false) {}

    [[nodiscard]] const scene::Rect& box() const { return box_; }
    [[nodiscard]] bool isRectangle() const { return isRectangle_; }
    [[nodiscard]] const Polygons& polygons() const { return polygons_; }

    /// Where all of `box` lies. `across` may be a box that is outside of polygons.
    [[nodiscard]] Place find(const scene::Rect& box) const;
    [[nodiscard]] bool contains(scene::Point p) const;

    /// What `silhouette` has in common with the region; nothing if it would take too long. Adds to
    /// `work` as `combine` does.
    [[nodiscard]] std::optional<Polygons> cut(Silhouette silhouette,
                                              std::size_t* work = nullptr) const;
    /// What both regions have in common; if that would take too long, this one.
    [[nodiscard]] ClipRegion within(const ClipRegion& other) const;

private:
    [[nodiscard]] bool hasBorderIn(const scene::Rect& box) const;

    scene::Rect box_;
    Polygons polygons_;
    bool isRectangle_ = true;
};

}  // namespace psrender::plan
