#pragma once

#include "psrender/plan/blend/BlendBudget.h"
#include "psrender/plan/blend/Look.h"
#include "psrender/plan/geometry/Polygons.h"
#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

/// A part of an area and its paint, whose gradient leads to the page.
struct Patch {
    Polygons area;
    scene::Paint paint;
};

/// Paints for an opaque look that no single paint can show: the area is halved until every part
/// comes close to one. Patches lie on top of each other a little, in their order, so that no seams
/// are between them. One that is all of the area stands for "in one piece".
std::vector<Patch> patchesOf(const Look& look, const Polygons& area, BlendBudget& budget);

}  // namespace psrender::plan
