#include "psrender/image/DerivedImages.h"

#include "Core/StringFormatStream.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace psrender::image {

using Drawing::ColorSpaceType;
using scene::Color;

namespace {

constexpr Color kPaper{255, 255, 255};

bool isGrey(const Color& color) {
    return color.red == color.green && color.green == color.blue;
}

ColorSpaceType spaceOver(const RowImage& image, const Color& ground) {
    const ColorSpaceType space = image.getColorSpace()->getType();
    return space == ColorSpaceType::gray && !isGrey(ground) ? ColorSpaceType::rgb : space;
}

/// The ground's components in the image's terms. Inks are what its colour lacks of white.
std::array<int, 4> componentsOf(const Color& ground, ColorSpaceType space) {
    if (space == ColorSpaceType::cmyk)
        return {255 - ground.red, 255 - ground.green, 255 - ground.blue, 0};
    return {ground.red, ground.green, ground.blue, 0};
}

Core::String keyOf(const RowImage& image, int opacity, const Color& ground) {
    const Core::StringFormatStream key = Core::StringFormatStream(u"{0}-o{1}")
                                         << image.getHashKey() << opacity;
    if (ground == kPaper)
        return key;
    return Core::StringFormatStream(u"{0}-{1:X02}{2:X02}{3:X02}")
           << key.str() << ground.red << ground.green << ground.blue;
}

class FlatImage : public RowImage {
public:
    FlatImage(Core::SmartPtr<RowImage> image, int opacity, const Color& ground)
        : RowImage(keyOf(*image, opacity, ground), image->getPixelSize(), spaceOver(*image, ground),
                   false),
          image_(std::move(image)),
          ground_(componentsOf(ground, image_->getColorSpace()->getType())) {
        for (std::size_t alpha = 0; alpha < shares_.size(); ++alpha)
            shares_[alpha] = static_cast<int>(alpha) * opacity;
    }

    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* /*alpha*/) const override {
        std::vector<std::uint8_t> colors(width() * image_->components());
        std::vector<std::uint8_t> alpha(width(), std::uint8_t{255});
        for (std::int32_t row = first; row < first + count; ++row) {
            image_->readRows(row, 1, colors.data(), alpha.data());
            const std::uint8_t* color = colors.data();
            for (const std::uint8_t value : alpha) {
                blend(color, shares_[value], pixels);
                color += image_->components();
                pixels += components();
            }
        }
    }

private:
    static constexpr int kWhole = 255 * 255;

    /// `share` of the colour, the rest ground, rounded to the nearest.
    void blend(const std::uint8_t* color, int share, std::uint8_t* pixel) const {
        const std::size_t step = image_->components() == 1 ? 0 : 1;
        for (std::size_t i = 0; i < components(); ++i)
            pixel[i] = static_cast<std::uint8_t>(
                (color[i * step] * share + ground_[i] * (kWhole - share) + kWhole / 2) / kWhole);
    }

    Core::SmartPtr<RowImage> image_;
    std::array<int, 4> ground_;
    std::array<int, 256> shares_{};  ///< of an alpha value, in parts of `kWhole`
};

}  // namespace

Core::SmartPtr<Drawing::Image> flattened(const Core::SmartPtr<Drawing::Image>& image,
                                         double opacity, const Color& ground) {
    const int level = static_cast<int>(std::lround(std::clamp(opacity, 0.0, 1.0) * 255));
    if (level == 255 && !image->hasAlpha())
        return image;
    return Core::makeObject<FlatImage>(rowsOf(image), level, ground);
}

}  // namespace psrender::image
