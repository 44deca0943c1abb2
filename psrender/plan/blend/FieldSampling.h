#pragma once

#include "psrender/plan/Budget.h"
#include "psrender/plan/blend/Appearance.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// An opaque appearance within `box`, which is on the page, as one paint: samples at the crossings
/// of a grid that grows finer until what lies between them is right within a few levels, or one
/// colour if they are all alike. Coarse where the budget is spent.
scene::Paint fieldOf(const Appearance& appearance, const scene::Rect& box, Budget& budget);

}  // namespace psrender::plan
