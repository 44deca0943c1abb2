#pragma once

#include "psrender/Warnings.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// Whether `shape` can be written in 32-bit floats and lies where an interpreter can reach it:
/// within a million points of the page's corner. If not, it is counted in `warnings`. A shape
/// that shows nothing, as its transform is flat, is out of range without a warning.
///
/// Coordinates that are large against what is drawn, as on maps, are moved next to the origin:
/// the outline is replaced by one that keeps its precision in floats.
bool isInRange(scene::Shape& shape, Warnings& warnings);

}  // namespace psrender::plan
