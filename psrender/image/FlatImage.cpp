#include "psrender/image/DerivedImages.h"

#include "Core/StringFormatStream.h"

#include <xxhash.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace psrender::image {

using Images::RowImage;
using Images::rowsOf;

using Drawing::ColorSpaceType;
using scene::Color;

namespace {

constexpr Color kPaper{255, 255, 255};

using Components = std::array<int, 4>;

bool isGrey(const Color& color) {
    return color.red == color.green && color.green == color.blue;
}

/// Few pixels over a ground of many colours become more.
Drawing::PixelSize sizeOver(const RowImage& image, const Backdrop& ground) {
    const Drawing::PixelSize size = image.getPixelSize();
    return {std::max(size.width, static_cast<std::int32_t>(ground.width)),
            std::max(size.height, static_cast<std::int32_t>(ground.height))};
}

ColorSpaceType spaceOver(const RowImage& image, const Backdrop& ground) {
    const ColorSpaceType space = image.getColorSpace()->getType();
    return space == ColorSpaceType::gray && !std::ranges::all_of(ground.colors, isGrey)
               ? ColorSpaceType::rgb
               : space;
}

/// The ground's components in the image's terms. Inks are what its colour lacks of white.
Components componentsOf(const Color& ground, ColorSpaceType space) {
    if (space == ColorSpaceType::cmyk)
        return {255 - ground.red, 255 - ground.green, 255 - ground.blue, 0};
    return {ground.red, ground.green, ground.blue, 0};
}

Core::String hashOf(const std::vector<Color>& colors) {
    static_assert(sizeof(Color) == 3);
    const auto hash = XXH3_64bits(colors.data(), colors.size() * sizeof(Color));
    return Core::StringFormatStream(u"{0:X08}{1:X08}")
           << static_cast<std::uint32_t>(hash >> 32) << static_cast<std::uint32_t>(hash);
}

Core::String keyOf(const RowImage& image, int opacity, const Backdrop& ground) {
    const Core::StringFormatStream key = Core::StringFormatStream(u"{0}-o{1}")
                                         << image.getHashKey() << opacity;
    const Color& first = ground.colors.front();
    if (ground.colors.size() > 1)
        return Core::StringFormatStream(u"{0}-{1}x{2}-{3}")
               << key.str() << static_cast<std::uint32_t>(ground.width)
               << static_cast<std::uint32_t>(ground.height) << hashOf(ground.colors);
    if (first == kPaper)
        return key;
    return Core::StringFormatStream(u"{0}-{1:X02}{2:X02}{3:X02}")
           << key.str() << first.red << first.green << first.blue;
}

class FlatImage : public RowImage {
public:
    FlatImage(Core::SmartPtr<RowImage> image, int opacity, Backdrop ground)
        : RowImage(keyOf(*image, opacity, ground), sizeOver(*image, ground),
                   spaceOver(*image, ground), false),
          image_(std::move(image)),
          ground_(std::move(ground)) {
        for (std::size_t alpha = 0; alpha < shares_.size(); ++alpha)
            shares_[alpha] = static_cast<int>(alpha) * opacity;
    }

    [[nodiscard]] bool isInterpolated() const override { return image_->isInterpolated(); }
    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* /*alpha*/) const override {
        std::vector<std::uint8_t> colors(image_->width() * image_->components());
        std::vector<std::uint8_t> alpha(image_->width(), std::uint8_t{255});
        std::vector<Components> ground = groundOf(first);
        std::int32_t lastRead = -1;
        for (std::int32_t row = first; row < first + count; ++row) {
            const std::int32_t wanted = originalRow(row);
            if (wanted != lastRead)
                image_->readRows(wanted, 1, colors.data(), alpha.data());
            lastRead = wanted;
            if (ground_.colors.size() > 1)
                ground = groundOf(row);
            for (std::size_t i = 0; i < width(); ++i) {
                const std::size_t pixel = i * image_->width() / width();
                blend(colors.data() + pixel * image_->components(), shares_[alpha[pixel]],
                      ground[i], pixels);
                pixels += components();
            }
        }
    }

private:
    static constexpr int kWhole = 255 * 255;

    [[nodiscard]] std::int32_t originalRow(std::int32_t row) const {
        const std::int64_t height = image_->getPixelSize().height;
        return static_cast<std::int32_t>(row * height / getPixelSize().height);
    }
    [[nodiscard]] std::vector<Components> groundOf(std::int32_t row) const {
        const auto place = [](double index, double count) { return (index + 0.5) / count; };
        const ColorSpaceType space = image_->getColorSpace()->getType();
        const double y = place(row, getPixelSize().height);
        std::vector<Components> ground(width());
        for (std::size_t i = 0; i < ground.size(); ++i)
            ground[i] = componentsOf(
                ground_.at(place(static_cast<double>(i), static_cast<double>(width())), y), space);
        return ground;
    }
    /// `share` of the colour, the rest ground, rounded to the nearest.
    void blend(const std::uint8_t* color, int share, const Components& ground,
               std::uint8_t* pixel) const {
        const std::size_t step = image_->components() == 1 ? 0 : 1;
        for (std::size_t i = 0; i < components(); ++i)
            pixel[i] = static_cast<std::uint8_t>(
                (color[i * step] * share + ground[i] * (kWhole - share) + kWhole / 2) / kWhole);
    }

    Core::SmartPtr<RowImage> image_;
    Backdrop ground_;
    std::array<int, 256> shares_{};  ///< of an alpha value, in parts of `kWhole`
};

}  // namespace

Core::SmartPtr<Drawing::Image> flattened(const Core::SmartPtr<Drawing::Image>& image,
                                         double opacity, const Color& ground) {
    return flattened(image, opacity, Backdrop{1, 1, {ground}});
}

Core::SmartPtr<Drawing::Image> flattened(const Core::SmartPtr<Drawing::Image>& image,
                                         double opacity, Backdrop ground) {
    const int level = static_cast<int>(std::lround(std::clamp(opacity, 0.0, 1.0) * 255));
    if (level == 255 && !image->hasAlpha())
        return image;
    return Core::makeObject<FlatImage>(rowsOf(image), level, std::move(ground));
}

}  // namespace psrender::image
