#pragma once

#include "psrender/raster/Rasterizer.h"

#include <optional>

namespace psrender::raster {

/// A box on the surface around what a group paints, which begins at `begin`; nothing if that is
/// not known, as with text and filters. `toPixels` leads from the items' space to the surface.
std::optional<scene::Rect> extentOfGroup(const scene::Item* begin, const scene::Item* end,
                                         const scene::Affine& toPixels);

}  // namespace psrender::raster
