#pragma once

#include "psrender/plan/gradient/ColorStops.h"
#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

/// A stretch of one colour, from `begin` to where the next band begins.
struct Band {
    double begin = 0;
    scene::Color color;
};

/// Where along a gradient its bands are wanted.
struct Stretch {
    double from = 0;
    double to = 1;
    double finest = 0;  ///< what is narrower than this need not be told apart
    double levels = 1;  ///< of 255 by which neighbouring bands may differ
};

/// A gradient as bands between which no difference shows. The first begins at the stretch's
/// begin. `stops` must be opaque.
std::vector<Band> bandsOf(const ColorStops& stops, scene::Spread spread, const Stretch& stretch);

}  // namespace psrender::plan
