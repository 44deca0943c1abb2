#pragma once

#include "psrender/image/Backdrop.h"
#include "psrender/plan/blend/BlendLayer.h"
#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <optional>

namespace psrender::plan {

/// What the lowest `count` areas of an opaque layer look like beneath a picture: spots a point
/// apart, or farther where that would be too many, or a single one where all are equal. White once
/// the budget is spent.
image::Backdrop backdropOf(const BlendLayer& layer, const scene::Affine& picture, std::size_t count,
                           BlendBudget& budget);

/// The pixels of an opaque picture that are all within `box`, as they look beneath a tint. Nothing
/// if there is none, or if the picture is not upright or in other colours than grey or RGB.
std::optional<scene::Picture> tinted(const scene::Picture& picture, const scene::Rect& box,
                                     const Tint& tint);

}  // namespace psrender::plan
