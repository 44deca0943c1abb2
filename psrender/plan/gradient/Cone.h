#pragma once

#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// Whether the circle that a gradient starts from reaches out of the one that it ends at. Such a
/// gradient paints a cone between both, and nothing beside it: no blend of colours in vectors knows
/// that, so it takes pixels.
[[nodiscard]] bool isCone(const scene::Gradient& gradient);

/// Whether an item is painted with one.
[[nodiscard]] bool hasCone(const scene::Item& item);

/// Draws the starts of an item's cones into their ends.
void straighten(scene::Item& item);

}  // namespace psrender::plan
