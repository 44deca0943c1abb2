#pragma once

#include "psrender/plan/geometry/Polyline.h"
#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

/// What a pen covers that draws `lines` solidly in the given style: rings that are to be filled by
/// the non-zero rule. Round joins and caps stay within `tolerance`. All in the same units.
std::vector<Polyline> ringsAround(const std::vector<Polyline>& lines,
                                  const scene::StrokeStyle& style, double tolerance);

}  // namespace psrender::plan
