#pragma once

#include "Images/RowImage.h"

#include <cstdint>
#include <vector>

namespace psrender::image {

/// An RGB image that is kept in memory. `alpha` has a byte a pixel or is empty. The key is made of
/// size and pixels.
Core::SmartPtr<Drawing::Image> inMemory(Drawing::PixelSize size, std::vector<std::uint8_t> colors,
                                        std::vector<std::uint8_t> alpha);

}  // namespace psrender::image
