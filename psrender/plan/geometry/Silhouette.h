#pragma once

#include "psrender/plan/geometry/Polygons.h"
#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// What the fill of `shape` covers by its rule, in the simplest form; nothing if that would take
/// too long to find out.
std::optional<Polygons> fillArea(const scene::Shape& shape, Budget& budget);

/// What its stroke covers, whatever its paint; parts that do not reach into `wanted` may be left
/// out.
std::optional<Polygons> strokeArea(const scene::Shape& shape, const scene::Rect& wanted,
                                   Budget& budget);

}  // namespace psrender::plan
