#pragma once

#include "Images/internal/PixelReader.h"

namespace Images {

/// A reader for a WebP file (RFC 9649), or for the first picture of an animated one. Throws
/// `ImageError` and `ImageLost`.
std::unique_ptr<PixelReader> openWebp(ByteReader bytes, std::uint64_t mostPixels);

}  // namespace Images
