#pragma once

#include "psrender/image/PixelReader.h"

namespace psrender::image {

/// A reader for a JPEG file: grey, RGB, or CMYK. Throws `ImageError`.
std::unique_ptr<PixelReader> openJpeg(ByteReader bytes, std::uint64_t mostPixels);

}  // namespace psrender::image
