#include "psrender/plan/clip/ClipChain.h"

#include "psrender/plan/geometry/Silhouette.h"

#include <utility>

namespace psrender::plan {

const ClipRegion* ClipChain::region(Budget& budget) const {
    if (clips_.empty())
        return nullptr;
    if (!region_)
        for (const auto& clip : clips_) {
            auto area = clip->isRectangle ? std::nullopt : fillArea(clip->shape(), budget);
            const ClipRegion own = area ? ClipRegion(std::move(*area)) : ClipRegion(clip->box);
            region_ = region_ ? region_->within(own, budget) : own;
        }
    return &*region_;
}

ClipChains::ChainPtr ClipChains::within(const ClipChain& around, const scene::Clip& clip) {
    const scene::Affine& map = clip.transform;
    auto& planned = planned_[{clip.area, map.a, map.b, map.c, map.d, map.e, map.f}];
    if (!planned) {
        scene::Shape shape = std::get<scene::Shape>(clip.area->items.front());
        shape.transform = map * shape.transform;
        planned = clipTo(std::move(shape));
    }
    Clips clips = around.clips();
    clips.push_back(planned);
    return chainOf(clips);
}

ClipChains::ChainPtr ClipChains::chainOf(const Clips& clips) {
    ChainPtr& chain = chains_[clips];
    if (!chain)
        chain = std::make_shared<const ClipChain>(clips);
    return chain;
}

}  // namespace psrender::plan
