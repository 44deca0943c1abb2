#pragma once

#include "psrender/raster/module/CairoHandles.h"

#include <optional>

namespace psrender::raster {

/// A rectangle of whole pixels.
struct PixelBox {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// The pixels of `target` that a filter can change, and outside of which it looks at nothing;
/// nothing if there are none. `toPixels` leads from the filter's space to the target.
std::optional<PixelBox> pixelsOf(const scene::Filter& filter, const scene::Affine& toPixels,
                                 cairo_surface_t* target);

/// What `filter` makes of the pixels of a group in `box`. Throws `std::runtime_error` if it cannot
/// be run.
Pattern applyFilter(Pattern source, const scene::Filter& filter, const scene::Affine& toPixels,
                    const PixelBox& box);

}  // namespace psrender::raster
