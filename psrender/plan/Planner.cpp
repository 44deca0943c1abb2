#include "psrender/plan/Planner.h"

#include "psrender/plan/PlacementStage.h"
#include "psrender/plan/TextStage.h"
#include "psrender/plan/blend/BlendStage.h"
#include "psrender/plan/blend/ShapeStage.h"
#include "psrender/plan/clip/ClipStage.h"
#include "psrender/plan/geometry/Reach.h"
#include "psrender/plan/gradient/GradientStage.h"
#include "psrender/plan/pattern/PatternStage.h"
#include "psrender/plan/picture/PictureStage.h"

#include <utility>

namespace psrender::plan {

namespace {

using Items = std::vector<scene::Item>;

/// What the sinks of a document share.
struct Shared {
    const PlanOptions& options;
    NativeGradients& natives;
    Warnings& warnings;
};

Items planAlone(Items items, const Shared& shared);

/// All sinks but the first, in a row. Blending costs memory for every shape, so it is left out of
/// the row where nothing asks for it.
class Row : public Sink {
public:
    /// `page` is the area that can be seen.
    Row(Items& planned, const scene::Rect& page, bool blends, const Shared& shared)
        : shapes_(planned, shared.warnings),
          gradients_(page, shared.natives, shared.warnings, shapes_),
          blending_(shared.warnings, gradients_),
          pictures_(shared.options.mostDotsPerInch, shared.warnings,
                    blends ? static_cast<Sink&>(blending_) : gradients_),
          texts_(shared.warnings, pictures_),
          clips_(shared.warnings, texts_),
          patterns_(
              page, [shared](Items items) { return planAlone(std::move(items), shared); },
              shared.warnings, clips_) {}

    void take(scene::Item item) override { patterns_.take(std::move(item)); }
    /// After the last item.
    void finish() { blending_.finish(); }

private:
    ShapeStage shapes_;
    GradientStage gradients_;
    BlendStage blending_;
    PictureStage pictures_;
    TextStage texts_;
    ClipStage clips_;
    PatternStage patterns_;
};

void takeAll(Items items, Sink& sink) {
    for (scene::Item& item : items)
        sink.take(std::move(item));
}

/// Items that stand for themselves, as in a symbol.
Items planAlone(Items items, const Shared& shared) {
    constexpr scene::Rect everywhere{-kReach, -kReach, 2 * kReach, 2 * kReach};
    Items planned;
    Row row(planned, everywhere, false, shared);
    PlacementStage placements(
        {}, [](const Items&) { return Items(); }, row);
    takeAll(std::move(items), placements);
    return planned;
}

}  // namespace

scene::Page Planner::plan(scene::Page page, Warnings& warnings) {
    const Shared shared{options_, natives_, warnings};
    scene::Page planned;
    planned.width = page.width;
    planned.height = page.height;
    const bool blends = options_.opacity == OpacityWay::blend && hasTranslucency(page);
    Row row(planned.items, {0, 0, page.width, page.height}, blends, shared);
    PlacementStage placements(
        page, [&](Items items) { return planAlone(std::move(items), shared); }, row);
    takeAll(std::move(page.items), placements);
    row.finish();
    return planned;
}

}  // namespace psrender::plan
