#pragma once

#include "psrender/plan/ClipRegion.h"
#include "psrender/scene/DisplayList.h"

#include <memory>
#include <optional>
#include <vector>

namespace psrender::plan {

/// A colour and how much it hides of what is beneath.
struct Tint {
    scene::Color color{255, 255, 255};
    double alpha = 1;

    friend bool operator==(const Tint&, const Tint&) = default;
};

/// What is seen where `above` lies on `below`.
Tint over(const Tint& above, const Tint& below);

/// One paint on one area of the page: the fill or the stroke of a shape, or a text or picture.
class BlendArea {
public:
    /// The areas of an item, the lowest first: none if it cannot be seen. A shape's fill and stroke
    /// become areas of their own.
    static std::vector<BlendArea> areasOf(const scene::Item& item);

    /// An area of polygons in their simplest form, which must not be empty.
    BlendArea(Polygons polygons, const Tint& tint);

    [[nodiscard]] const scene::Rect& box() const { return box_; }
    [[nodiscard]] scene::Point middle() const;
    [[nodiscard]] const Tint& tint() const { return tint_; }
    /// Whether it is in one colour; `tint` is an average if not.
    [[nodiscard]] bool isSolid() const { return isSolid_; }
    [[nodiscard]] bool isText() const { return std::holds_alternative<scene::Text>(item_); }

    /// The area in polygons, made when first asked for; null if that is not known or it has too
    /// many corners.
    [[nodiscard]] const ClipRegion* region() const;

    /// The same area in another tint. One that is not solid keeps its colours and takes the alpha.
    [[nodiscard]] BlendArea with(const Tint& tint) const;
    /// What is to be shown for it, with the tint's alpha as the opacity of its paint.
    [[nodiscard]] scene::Item item() const;

private:
    BlendArea(scene::Item item, const scene::Rect& box);

    scene::Item item_;
    scene::Rect box_;
    Tint tint_;
    bool isSolid_ = true;
    mutable bool isRegionKnown_ = false;
    mutable std::shared_ptr<const ClipRegion> region_;
};

}  // namespace psrender::plan
