#pragma once

#include "Drawing/Image.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Drawing {

/// An image in other colours: each component runs from `low` to `high` where the original's runs
/// from 0 to 1. So a picture is dimmed, brightened, inverted, or seen through an even tint. A back
/// end that knows the class keeps one copy of the original's data for all its tints.
class DRAWING_API TintedImage : public Image {
public:
    /// What 0 and 255 of a component become, 0 to 1 (`Decode`, PLRM 4.10.5).
    struct Range {
        double low = 0;
        double high = 1;

        friend bool operator==(const Range&, const Range&) = default;
    };

    /// A range for each component of the original's colour space. Raises `FormatException` for
    /// another number of them or one that leaves 0 to 1. Tints of tinted images become one.
    TintedImage(const Core::SmartPtr<Image>& original, std::vector<Range> ranges);
    ~TintedImage() override;

    /// Never a tinted image itself.
    [[nodiscard]] const Core::SmartPtr<Image>& getOriginal() const { return original_; }
    [[nodiscard]] const std::vector<Range>& getRanges() const { return ranges_; }

    /// Tints whole pixels of the original in place; one-bit ones come out grey.
    void tint(std::span<std::uint8_t> pixels) const;

    [[nodiscard]] PixelSize getPixelSize() const override;
    /// The original's; grey for a tinted one-bit image, as it has two colours of any lightness.
    [[nodiscard]] Core::SmartPtr<ColorSpace> getColorSpace() const override;
    [[nodiscard]] bool hasAlpha() const override;
    [[nodiscard]] Core::ByteArray getPixelBytes(int selector) const override;
    [[nodiscard]] Core::ByteArray getAlphaBytes(int selector) const override;
    [[nodiscard]] bool isInterpolated() const override;

private:
    Core::SmartPtr<Image> original_;
    std::vector<Range> ranges_;
};

}  // namespace Drawing
