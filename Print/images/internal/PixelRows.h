#pragma once

#include "Core/ByteArray.h"
#include "Drawing/Image.h"
#include "Drawing/RowSource.h"
#include "Drawing/TintedImage.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Drawing::Print {

/// Reads the pixels of any image a few rows at a time, from the top down. An image that gives out
/// rows is never in memory whole.
class PixelRows {
public:
    /// Some rows, whole: colour components side by side and, if the image has alpha, a byte a
    /// pixel.
    struct Band {
        std::span<std::uint8_t> pixels;
        std::span<std::uint8_t> alpha;
    };

    /// `image` must outlive the rows. Raises `FormatException` for an image without pixels, or
    /// with fewer than its size needs.
    PixelRows(const Image& image, int selector);

    [[nodiscard]] PixelSize size() const { return size_; }
    /// Of the pixels as they are read; those of one-bit images are 0 or 255.
    [[nodiscard]] ColorSpaceType space() const { return space_; }
    [[nodiscard]] std::size_t width() const { return static_cast<std::size_t>(size_.width); }
    [[nodiscard]] std::size_t components() const { return components_; }
    [[nodiscard]] std::size_t rowBytes() const { return width() * components_; }

    [[nodiscard]] bool atEnd() const { return next_ == size_.height; }
    /// The next rows, valid until the next call.
    Band read();

private:
    void fetch(std::int32_t count);

    const TintedImage* tinted_;
    const Image& source_;
    const RowSource* rows_;
    int selector_;
    PixelSize size_;
    ColorSpaceType space_;
    std::size_t components_;
    Core::ByteArray allPixels_;  ///< of an image that does not give out rows
    Core::ByteArray allAlpha_;
    std::int32_t next_ = 0;
    std::vector<std::uint8_t> pixels_;
    std::vector<std::uint8_t> alpha_;
};

}  // namespace Drawing::Print
