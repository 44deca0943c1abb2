#pragma once

#include "Images/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Images {

/// `other` is a raster format that is recognised but not read.
enum class ImageFormat : std::uint8_t { none, png, jpeg, gif, webp, other };

/// So many bytes from the beginning of a file tell its format.
inline constexpr std::size_t kFormatBytes = 12;

/// What a file that begins with these bytes is.
IMAGES_API ImageFormat formatOf(std::string_view beginning);

/// A clause that says why such a file cannot be used as an image and what to do.
IMAGES_API std::string unusableFormat(std::string_view beginning);

}  // namespace Images
