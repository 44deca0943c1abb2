#pragma once

#include "psrender/plan/blend/Appearance.h"
#include "psrender/plan/blend/Recoloring.h"
#include "psrender/plan/clip/ClipChain.h"
#include "psrender/scene/DisplayList.h"

#include <memory>
#include <optional>
#include <vector>

namespace psrender::plan {

/// An item and the clips that it is shown under.
struct ClippedItem {
    Clips clips;
    scene::Item item;
};

/// One paint on one area of the page: the fill or the stroke of a shape or text, or a picture.
class BlendArea {
public:
    using ChainPtr = std::shared_ptr<const ClipChain>;

    /// The areas of an item under clips, the lowest first: none if it cannot be seen. Fill and
    /// stroke become areas of their own.
    static std::vector<BlendArea> areasOf(const scene::Item& item, const ChainPtr& clips,
                                          Budget& budget);

    /// An area of polygons in their simplest form, which must not be empty.
    BlendArea(Polygons polygons, Appearance appearance);

    [[nodiscard]] const scene::Rect& box() const { return box_; }
    [[nodiscard]] const Appearance& appearance() const { return appearance_; }
    /// Whether what lies beneath shows between what it paints, as with patterns.
    [[nodiscard]] bool hasGaps() const { return hasGaps_; }
    [[nodiscard]] bool isText() const { return std::holds_alternative<scene::Text>(item_); }
    /// The picture if it is nothing else, else null.
    [[nodiscard]] const scene::Picture* picture() const;
    [[nodiscard]] const ChainPtr& chain() const { return chain_; }

    /// The area in polygons, made when first asked for; null if that would take too long.
    [[nodiscard]] const ClipRegion* region(Budget& budget) const;

    /// The same area with another appearance.
    [[nodiscard]] BlendArea with(Appearance appearance) const;
    /// What is to be shown for it where nothing shows through any more.
    [[nodiscard]] ClippedItem shown(Budget& budget, Recoloring& recoloring) const;

private:
    BlendArea(scene::Item item, const scene::Rect& box, ChainPtr clips);

    [[nodiscard]] std::optional<ClipRegion> findRegion(Budget& budget) const;
    [[nodiscard]] ClippedItem shownPicture(const Appearance::Tinted& seen, Budget& budget) const;
    [[nodiscard]] scene::Paint paint(Budget& budget, Recoloring& recoloring) const;

    scene::Item item_;
    ChainPtr chain_;
    scene::Rect box_;
    Appearance appearance_;
    bool hasGaps_ = false;
    mutable bool isRegionKnown_ = false;
    mutable std::shared_ptr<const ClipRegion> region_;
};

}  // namespace psrender::plan
