#pragma once

#include "Drawing/ColorSpace.h"
#include "Drawing/Image.h"
#include "Images/internal/ImageBytes.h"

#include <cstdint>
#include <memory>

namespace Images {

/// What the head of an image file tells.
struct ImageFacts {
    Drawing::PixelSize size;  ///< as stored, before it is turned upright
    Drawing::ColorSpaceType colorSpace = Drawing::ColorSpaceType::rgb;
    bool hasAlpha = false;
    int orientation = 1;              ///< 1 to 8, as cameras count
    double horizontalResolution = 0;  ///< dots per inch as stored; 0 if not told
    double verticalResolution = 0;
    bool isProfileIgnored = false;  ///< colours stand as they are despite a profile
    bool isPlainJpeg = false;       ///< a JPEG file whose samples are the pixels

    [[nodiscard]] std::size_t componentCount() const {
        return colorSpace == Drawing::ColorSpaceType::cmyk  ? 4U
               : colorSpace == Drawing::ColorSpaceType::rgb ? 3U
                                                            : 1U;
    }
};

/// Decodes an image from its first row to its last, a row at a time.
class PixelReader {
public:
    PixelReader() = default;
    PixelReader(const PixelReader&) = delete;
    PixelReader& operator=(const PixelReader&) = delete;
    virtual ~PixelReader() = default;

    [[nodiscard]] const ImageFacts& facts() const { return facts_; }
    /// The next row: colour components side by side, 8 bits each, sRGB, grey in sRGB's steps, or
    /// CMYK with 255 full ink; and, if the image has alpha, a byte a pixel. Throws `ImageError`
    /// and `ImageLost`. Not to be called after the last row or after an error.
    virtual void readRow(std::uint8_t* pixels, std::uint8_t* alpha) = 0;

protected:
    ImageFacts facts_;
};

/// A reader for a file of at most `mostPixels` pixels, its head read. Throws
/// `ImageError` for everything else, and `ImageLost`.
std::unique_ptr<PixelReader> openImage(ByteReader bytes, std::uint64_t mostPixels);

/// Throws `ImageError` if an image of this size is larger than `mostPixels`.
void requireFeasible(std::uint64_t width, std::uint64_t height, std::uint64_t mostPixels);

}  // namespace Images
