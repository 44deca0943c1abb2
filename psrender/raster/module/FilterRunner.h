#pragma once

#include "psrender/raster/module/CairoHandles.h"

namespace psrender::raster {

/// What `filter` makes of a group that was drawn for `target`, a surface of the size in which the
/// result is wanted. `toPixels` leads from the filter's space to the target. Throws
/// `std::runtime_error` if the filter cannot be run.
Pattern applyFilter(Pattern source, const scene::Filter& filter, const scene::Affine& toPixels,
                    cairo_surface_t* target);

}  // namespace psrender::raster
