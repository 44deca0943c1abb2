#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

/// `shape` as 32-bit floats and an interpreter's range can take it; nothing if it shows nothing.
///
/// A shape that leaves the range is cut there, fill and stroke apart. One with numbers that cannot
/// be written is left out and counted in `warnings`. Coordinates that are large against what is
/// drawn, as on maps, are moved next to the origin, where floats keep their precision.
std::vector<scene::Shape> bringInRange(const scene::Shape& shape, Warnings& warnings);

}  // namespace psrender::plan
