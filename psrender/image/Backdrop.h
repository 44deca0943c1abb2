#pragma once

#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <vector>

namespace psrender::image {

/// The colours beneath an image, in rows of spots that are spread evenly over it. A single spot
/// is one colour everywhere.
struct Backdrop {
    std::size_t width = 1;
    std::size_t height = 1;
    std::vector<scene::Color> colors;  ///< `width` times `height`, the top row first

    /// The colour at a place, 0 to 1 both ways, mixed from the spots around it.
    [[nodiscard]] scene::Color at(double x, double y) const;
};

}  // namespace psrender::image
