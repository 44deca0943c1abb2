#pragma once

#include "Images/internal/PixelReader.h"

namespace Images {

/// A reader for the first picture of a GIF file (GIF89a). Throws `ImageError` and `ImageLost`.
std::unique_ptr<PixelReader> openGif(ByteReader bytes, std::uint64_t mostPixels);

}  // namespace Images
