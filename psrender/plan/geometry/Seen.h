#pragma once

#include "psrender/scene/Geometry.h"

namespace psrender::plan {

/// Whether the map leads back, too.
bool hasInverse(const scene::Affine& map);

/// Whether the image of the square of side 1 has a size on the page that an interpreter can divide
/// by.
bool isSeen(const scene::Affine& toPage);

}  // namespace psrender::plan
