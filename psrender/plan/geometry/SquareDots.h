#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// The squares that a stroke with square caps shows where a subpath stays on one point, as a fill
/// of the stroke's paint; nothing if there are none. Interpreters show round caps there, but take
/// square ones, which have no direction, for nothing.
std::optional<scene::Shape> squareDots(const scene::Shape& shape);

}  // namespace psrender::plan
