#include "psrender/plan/PagePlanner.h"

#include "psrender/plan/PlacementStage.h"
#include "psrender/plan/blend/BlendStage.h"
#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/blend/WhiteStage.h"
#include "psrender/plan/clip/ClipStage.h"
#include "psrender/plan/effect/EffectSearch.h"
#include "psrender/plan/effect/EffectStage.h"
#include "psrender/plan/geometry/RangeStage.h"
#include "psrender/plan/gradient/GradientStage.h"
#include "psrender/plan/pattern/PatternStage.h"
#include "psrender/plan/picture/PictureStage.h"

#include <memory>
#include <optional>
#include <utility>

namespace psrender::plan {

using Items = std::vector<scene::Item>;

Items PagePlanner::plan(scene::ItemList list, std::optional<scene::Rect> page) {
    Collector planned;
    RangeStage range(warnings_, planned);
    GradientStage gradients(warnings_, range);
    const std::unique_ptr<Stage> opaque = opaqueStage(list, gradients);
    PictureStage pictures(options_.mostDotsPerInch, warnings_, opaque ? *opaque : gradients);
    ClipStage clips(budget_, warnings_, pictures);
    const auto planAlone = [this](Items items) { return plan({std::move(items)}); };
    PatternStage patterns(planAlone, warnings_, clips);
    const std::unique_ptr<Stage> effects = effectStage(list, page, patterns);
    PlacementStage placements(list, planAlone, effects ? *effects : patterns);
    for (scene::Item& item : list.items)
        placements.take(std::move(item));
    placements.finish();
    return std::move(planned.items);
}

/// Looking at pixels is left out where nothing asks for it.
std::unique_ptr<Stage> PagePlanner::effectStage(const scene::ItemList& list,
                                                std::optional<scene::Rect> page, Sink& next) {
    if (!hasPicturesOnPatterns_ && !mayNeedPixels(list))
        return nullptr;
    return std::make_unique<EffectStage>(PixelMaker(options_.rasterDotsPerInch, page, warnings_),
                                         hasPicturesOnPatterns_, warnings_, next);
}

/// Blending costs memory for every shape, so it is left out where nothing asks for it.
std::unique_ptr<Stage> PagePlanner::opaqueStage(const scene::ItemList& list, Sink& next) {
    if (!hasTranslucency(list))
        return nullptr;
    if (options_.opacity == OpacityWay::white)
        return std::make_unique<WhiteStage>(next);
    return std::make_unique<BlendStage>(budget_, warnings_, next);
}

}  // namespace psrender::plan
