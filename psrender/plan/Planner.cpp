#include "psrender/plan/Planner.h"

#include "psrender/plan/ShapeStage.h"

#include <utility>

namespace psrender::plan {

scene::Page Planner::plan(scene::Page page, Warnings& warnings) {
    scene::Page planned;
    planned.width = page.width;
    planned.height = page.height;
    ShapeStage shapes(planned.items, warnings);
    for (scene::Item& item : page.items)
        shapes.take(std::move(item));
    return planned;
}

}  // namespace psrender::plan
