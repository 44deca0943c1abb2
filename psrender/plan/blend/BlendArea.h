#pragma once

#include "psrender/plan/blend/BlendBudget.h"
#include "psrender/plan/blend/Look.h"
#include "psrender/plan/clip/ClipRegion.h"
#include "psrender/scene/DisplayList.h"

#include <memory>
#include <optional>
#include <vector>

namespace psrender::plan {

/// One paint on one area of the page: the fill or the stroke of a shape, or a text or picture.
class BlendArea {
public:
    /// The areas of an item, the lowest first: none if it cannot be seen. A shape's fill and stroke
    /// become areas of their own.
    static std::vector<BlendArea> areasOf(const scene::Item& item);

    /// An area of polygons in their simplest form, which must not be empty.
    BlendArea(Polygons polygons, Look look);

    [[nodiscard]] const scene::Rect& box() const { return box_; }
    [[nodiscard]] scene::Point middle() const;
    [[nodiscard]] const Look& look() const { return look_; }
    /// Whether the look is all there is to know; if not, it is what is seen from afar.
    [[nodiscard]] bool isKnown() const { return isKnown_; }
    [[nodiscard]] bool isText() const { return std::holds_alternative<scene::Text>(item_); }

    /// The picture that it is, else null.
    [[nodiscard]] const scene::Picture* picture() const {
        return std::get_if<scene::Picture>(&item_);
    }

    /// The area in polygons, made when first asked for; null if that is not known or it has too
    /// many corners.
    [[nodiscard]] const ClipRegion* region() const;

    /// The same area with another look. One whose look is an average keeps its own paint, with the
    /// look's alpha.
    [[nodiscard]] BlendArea with(const Look& look) const;
    /// What is to be shown for it where nothing shows through any more, and for an average with the
    /// look's alpha as the opacity of its paint.
    [[nodiscard]] std::vector<scene::Item> items(BlendBudget& budget) const;

private:
    BlendArea(scene::Item item, const scene::Rect& box);

    [[nodiscard]] scene::Item unknownItem() const;
    [[nodiscard]] scene::Item solidItem(const scene::Color& color) const;
    [[nodiscard]] std::vector<scene::Item> patches(BlendBudget& budget) const;
    [[nodiscard]] scene::Item wholeItem(const scene::Paint& paint) const;

    scene::Item item_;
    scene::Rect box_;
    Look look_;
    bool isKnown_ = true;
    mutable bool isRegionKnown_ = false;
    mutable std::shared_ptr<const ClipRegion> region_;
};

}  // namespace psrender::plan
