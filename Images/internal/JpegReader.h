#pragma once

#include "Images/internal/PixelReader.h"

namespace Images {

/// A reader for a JPEG file: grey, RGB, or CMYK. Throws `ImageError`.
std::unique_ptr<PixelReader> openJpeg(ByteReader bytes, std::uint64_t mostPixels);

}  // namespace Images
