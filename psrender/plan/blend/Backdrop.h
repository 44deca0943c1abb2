#pragma once

#include "psrender/image/Backdrop.h"
#include "psrender/plan/blend/BlendLayer.h"

#include <cstddef>

namespace psrender::plan {

/// What the lowest `count` areas of an opaque layer look like beneath a picture with this
/// transform: spots a point apart, or farther where that would be too many, or a single one where
/// all are equal. White once the budget is spent.
image::Backdrop backdropOf(const BlendLayer& layer, const scene::Affine& picture, std::size_t count,
                           Budget& budget);

}  // namespace psrender::plan
