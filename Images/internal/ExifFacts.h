#pragma once

#include <cstdint>
#include <span>

namespace Images {

/// What a camera noted about a picture.
struct ExifFacts {
    int orientation = 1;              ///< 1 (as stored) to 8
    double horizontalResolution = 0;  ///< dots per inch; 0 if not told
    double verticalResolution = 0;
};

/// Reads a TIFF header and its first directory; what is missing or damaged stays as it is by
/// default.
ExifFacts parseExif(std::span<const std::uint8_t> tiff);

}  // namespace Images
