#include "psrender/image/DerivedImages.h"

#include "Core/StringFormatStream.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace psrender::image {

namespace {

constexpr double kOpaque = 255;

class FlatImage : public RowImage {
public:
    FlatImage(Core::SmartPtr<RowImage> image, int opacity)
        : RowImage(Core::StringFormatStream(u"{0}-o{1}") << image->getHashKey() << opacity,
                   image->getPixelSize(), image->getColorSpace()->getType(), false),
          image_(std::move(image)),
          paper_(image_->getColorSpace()->getType() == Drawing::ColorSpaceType::cmyk ? 0 : 255) {
        for (std::size_t alpha = 0; alpha < shares_.size(); ++alpha)
            shares_[alpha] = static_cast<int>(alpha) * opacity;
    }

    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* /*alpha*/) const override {
        std::vector<std::uint8_t> alpha(width(), std::uint8_t{255});
        for (std::int32_t row = first; row < first + count; ++row) {
            image_->readRows(row, 1, pixels, alpha.data());
            for (const std::uint8_t value : alpha)
                pixels = blend(pixels, shares_[value]);
        }
    }

private:
    static constexpr int kWhole = 255 * 255;

    /// `share` of the colour, the rest paper, rounded to the nearest; returns the next pixel.
    [[nodiscard]] std::uint8_t* blend(std::uint8_t* pixel, int share) const {
        std::uint8_t* const end = pixel + components();
        if (share != kWhole)
            std::transform(pixel, end, pixel, [&](std::uint8_t color) {
                return static_cast<std::uint8_t>(
                    (color * share + paper_ * (kWhole - share) + kWhole / 2) / kWhole);
            });
        return end;
    }

    Core::SmartPtr<RowImage> image_;
    int paper_;
    std::array<int, 256> shares_{};  ///< of an alpha value, in parts of `kWhole`
};

}  // namespace

Core::SmartPtr<Drawing::Image> overWhite(const Core::SmartPtr<Drawing::Image>& image,
                                         double opacity) {
    const int level = static_cast<int>(std::lround(std::clamp(opacity, 0.0, 1.0) * kOpaque));
    if (level == 255 && !image->hasAlpha())
        return image;
    return Core::makeObject<FlatImage>(rowsOf(image), level);
}

}  // namespace psrender::image
