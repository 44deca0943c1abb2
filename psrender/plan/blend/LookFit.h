#pragma once

#include "psrender/plan/blend/Look.h"
#include "psrender/plan/geometry/Polygons.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// The single paint that comes closest to a look.
struct LookFit {
    scene::Paint paint;          ///< opaque, solid or a gradient that leads to the page
    double error = 0;            ///< levels of 255 at the worst place
    bool isWorstAcross = false;  ///< whether it goes wrong along x rather than along y
};

/// The fit for an opaque look within `box`, for the part of it that `area` covers, if not null.
/// The look is tried along the direction in which it changes most and along each of the circles
/// that are in it.
LookFit fitTo(const Look& look, const scene::Rect& box, const Polygons* area);

}  // namespace psrender::plan
