#pragma once

#include "Images/internal/PixelReader.h"

namespace Images {

/// A reader for a PNG file: every depth and kind of colour as 8-bit grey or RGB. Throws
/// `ImageError`.
std::unique_ptr<PixelReader> openPng(ByteReader bytes, std::uint64_t mostPixels);

}  // namespace Images
