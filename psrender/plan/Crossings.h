#pragma once

#include "psrender/plan/Polyline.h"

#include <vector>

namespace psrender::plan {

/// Whether cutting the polygons at their crossings would take unreasonable time or memory: more
/// than half a million pairs of their edges come close to each other.
bool hasTooManyCrossings(const std::vector<Polyline>& polygons);

}  // namespace psrender::plan
