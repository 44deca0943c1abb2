#pragma once

#include "psrender/plan/geometry/Polyline.h"
#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

/// The dashes of a line, each a line of its own; the line itself if it is solid. Lines with more
/// dashes than can be told apart on a page are taken for solid.
std::vector<Polyline> dashesOf(const std::vector<Polyline>& lines, const scene::StrokeStyle& style);

}  // namespace psrender::plan
