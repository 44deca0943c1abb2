#pragma once

#include "Drawing/Image.h"
#include "Drawing/RowSource.h"

namespace Drawing {

/// An image in memory. Its key is a 128-bit hash of size, colour space, pixels and alpha, so equal
/// pictures share one resource of a document wherever they come from.
class DRAWING_API RasterImage : public Image, public RowSource {
public:
    /// `pixels` as `getPixelBytes` gives them; `alpha` empty or one byte a pixel. Raises
    /// `FormatException` when their lengths do not fit the size.
    RasterImage(PixelSize size, ColorSpaceType colorSpace, Core::ByteArray pixels,
                Core::ByteArray alpha = {});
    ~RasterImage() override;

    [[nodiscard]] PixelSize getPixelSize() const override { return size_; }
    [[nodiscard]] Core::SmartPtr<ColorSpace> getColorSpace() const override { return colorSpace_; }
    [[nodiscard]] bool hasAlpha() const override { return !alpha_.empty(); }
    [[nodiscard]] Core::ByteArray getPixelBytes(int selector) const override;
    [[nodiscard]] Core::ByteArray getAlphaBytes(int selector) const override;
    void readPixelRows(int selector, std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                       std::uint8_t* alpha) const override;

private:
    PixelSize size_;
    Core::SmartPtr<ColorSpace> colorSpace_;
    Core::ByteArray pixels_;
    Core::ByteArray alpha_;
};

}  // namespace Drawing
