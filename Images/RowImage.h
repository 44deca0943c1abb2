#pragma once

#include "Drawing/Image.h"
#include "Drawing/RowSource.h"
#include "Images/Export.h"

#include <cstdint>

namespace Images {

/// A rectangle of whole pixels, counted from the top left corner.
struct PixelRect {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// An image that is decoded when asked and keeps no pixels. It is cheapest to ask for rows from
/// the top down.
class IMAGES_API RowImage : public Drawing::Image, public Drawing::RowSource {
public:
    RowImage(Core::String hashKey, Drawing::PixelSize size, Drawing::ColorSpaceType colorSpace,
             bool hasAlpha);

    [[nodiscard]] Drawing::PixelSize getPixelSize() const override { return size_; }
    [[nodiscard]] Core::SmartPtr<Drawing::ColorSpace> getColorSpace() const override {
        return colorSpace_;
    }
    [[nodiscard]] bool hasAlpha() const override { return hasAlpha_; }
    [[nodiscard]] Core::ByteArray getPixelBytes(int selector) const override;
    [[nodiscard]] Core::ByteArray getAlphaBytes(int selector) const override;
    void readPixelRows(int selector, std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                       std::uint8_t* alpha) const override;

    /// Writes `count` rows from `first` on; `alpha` may be null for an image without. Throws
    /// `std::runtime_error` if the image can no longer be decoded.
    virtual void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                          std::uint8_t* alpha) const = 0;

    /// A part outside of which all pixels are clear; its sides may be 0.
    [[nodiscard]] virtual PixelRect visiblePart() const {
        return {0, 0, size_.width, size_.height};
    }
    [[nodiscard]] std::size_t width() const { return static_cast<std::size_t>(size_.width); }
    [[nodiscard]] std::size_t components() const { return components_; }

private:
    Drawing::PixelSize size_;
    Core::SmartPtr<Drawing::ColorSpace> colorSpace_;
    std::size_t components_;
    bool hasAlpha_;
};

/// `image` as one that gives out rows. One that does not is kept with all its pixels.
IMAGES_API Core::SmartPtr<RowImage> rowsOf(const Core::SmartPtr<Drawing::Image>& image);

}  // namespace Images
