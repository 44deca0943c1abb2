#include "psrender/plan/Planner.h"

#include "psrender/plan/ClipStage.h"
#include "psrender/plan/PictureStage.h"
#include "psrender/plan/PlacementStage.h"
#include "psrender/plan/ShapeStage.h"
#include "psrender/plan/TextStage.h"

#include <utility>

namespace psrender::plan {

namespace {

using Items = std::vector<scene::Item>;

/// All sinks but the first, in a row.
class Row : public Sink {
public:
    Row(Items& planned, const PlanOptions& options, Warnings& warnings)
        : shapes_(planned, warnings),
          pictures_(options.mostDotsPerInch, warnings, shapes_),
          texts_(warnings, pictures_),
          clips_(warnings, texts_) {}

    void take(scene::Item item) override { clips_.take(std::move(item)); }

private:
    ShapeStage shapes_;
    PictureStage pictures_;
    TextStage texts_;
    ClipStage clips_;
};

void takeAll(Items items, Sink& sink) {
    for (scene::Item& item : items)
        sink.take(std::move(item));
}

/// Items that stand for themselves, as in a symbol.
Items planAlone(Items items, const PlanOptions& options, Warnings& warnings) {
    Items planned;
    Row row(planned, options, warnings);
    PlacementStage placements(
        {}, [](const Items&) { return Items(); }, row);
    takeAll(std::move(items), placements);
    return planned;
}

}  // namespace

scene::Page Planner::plan(scene::Page page, Warnings& warnings) {
    scene::Page planned;
    planned.width = page.width;
    planned.height = page.height;
    Row row(planned.items, options_, warnings);
    PlacementStage placements(
        page, [&](Items items) { return planAlone(std::move(items), options_, warnings); }, row);
    takeAll(std::move(page.items), placements);
    return planned;
}

}  // namespace psrender::plan
