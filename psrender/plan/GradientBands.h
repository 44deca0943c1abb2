#pragma once

#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

using ColorStops = std::vector<scene::ColorStop>;

/// The stops as they look over white paper. Colour and opacity run side by side, so between stops
/// of different opacity the look is bent and takes more stops.
ColorStops overWhite(const ColorStops& stops);

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
};

/// A gradient as bands between which no difference shows. The first begins at the stretch's
/// begin. `stops` must be opaque.
std::vector<Band> bandsOf(const ColorStops& stops, scene::Spread spread, const Stretch& stretch);

}  // namespace psrender::plan
