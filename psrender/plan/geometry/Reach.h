#pragma once

#include "psrender/plan/Carried.h"
#include "psrender/plan/geometry/Polyline.h"

#include <vector>

namespace psrender::plan {

/// The parts of areas within reach. Where an area is cut its border runs along the edge of reach,
/// so that every point within is inside as often as before.
std::vector<Polyline> areasInReach(const std::vector<Polyline>& areas);

/// The parts of lines within reach, open where they were cut.
std::vector<Polyline> linesInReach(const std::vector<Polyline>& lines);

}  // namespace psrender::plan
