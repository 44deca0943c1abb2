#pragma once

#include "psrender/plan/clip/ClipGroups.h"
#include "psrender/plan/clip/ClipRegion.h"

#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>

namespace psrender::plan {

/// All the clips that hold for an item, and the region that they leave.
class ClipChain {
public:
    explicit ClipChain(Clips clips) : clips_(std::move(clips)) {}

    [[nodiscard]] const Clips& clips() const { return clips_; }
    /// Made when first asked for; null without clips. A clip that would take too long is left out.
    [[nodiscard]] const ClipRegion* region(Budget& budget) const;

private:
    Clips clips_;
    mutable std::optional<ClipRegion> region_;
};

/// The chains of a page, which items share.
class ClipChains {
public:
    using ChainPtr = std::shared_ptr<const ClipChain>;

    ChainPtr none() { return chainOf({}); }
    /// `around` with one more clip, a planned one in the space that `toPage` leads from.
    ChainPtr within(const ClipChain& around, const scene::Clip& clip);

private:
    ChainPtr chainOf(const Clips& clips);

    /// Area and transform of a clip.
    using Key = std::tuple<std::shared_ptr<const scene::ItemList>, double, double, double, double,
                           double, double>;

    std::map<Key, std::shared_ptr<const PlannedClip>> planned_;
    std::map<Clips, ChainPtr> chains_;
};

}  // namespace psrender::plan
