#pragma once

#include "psrender/raster/module/CairoHandles.h"

namespace psrender::raster {

/// Makes each pixel of a group that was drawn as opaque as it is bright. The weights are those of
/// CSS Masking Module Level 1, 6.3.
void turnIntoLuminance(cairo_pattern_t* group);

}  // namespace psrender::raster
