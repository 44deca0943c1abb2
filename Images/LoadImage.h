#pragma once

#include "Core/String.h"
#include "Drawing/Image.h"
#include "Images/Export.h"

#include <cstdint>
#include <string_view>

namespace Images {

/// An image file, ready to be drawn.
struct LoadedImage {
    /// Upright, in sRGB, grey in sRGB's steps, or CMYK.
    Core::SmartPtr<Drawing::Image> image;
    double horizontalResolution = 0;  ///< dots per inch; 0 if the file does not tell
    double verticalResolution = 0;
    /// Whether the file has a colour profile that cannot be used: the colours stand as they are.
    bool isProfileIgnored = false;
};

/// What an image may have at most unless the caller says otherwise.
inline constexpr std::uint64_t kUsualMostPixels = 120'000'000;

/// Loads a file: PNG (ISO/IEC 15948), JPEG (ITU-T T.81, with Exif and ICC profiles), WebP, or the
/// first picture of a GIF. The image keeps no pixels but decodes the file again whenever they are
/// asked for, so the file must stay as it is; one that a camera turned is brought upright in
/// memory. A `Print::PrintDocument` passes JPEG files through as they are.
///
/// Throws `ImageError` for a file that is missing, damaged, of another format or has more than
/// `mostPixels` pixels, and `ImageLost`; the sentence begins with the name of the file. Drawing the
/// image throws `ImageGone` if the file has changed.
IMAGES_API LoadedImage loadImage(const Core::String& path,
                                 std::uint64_t mostPixels = kUsualMostPixels);

/// Loads the bytes of such a file, which are kept in a temporary file that has no name. `name` is
/// for messages.
IMAGES_API LoadedImage loadImage(std::string_view bytes, const Core::String& name,
                                 std::uint64_t mostPixels = kUsualMostPixels);

}  // namespace Images
