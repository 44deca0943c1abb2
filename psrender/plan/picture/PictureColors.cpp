#include "psrender/plan/picture/PictureColors.h"

#include "psrender/image/DerivedImages.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace psrender::plan {

using scene::Color;

namespace {

constexpr std::int32_t kMostSide = 64;

/// Ink takes away from white.
Color colorOf(const std::uint8_t* pixel, std::size_t components) {
    if (components < 3)
        return {pixel[0], pixel[0], pixel[0]};
    if (components == 3)
        return {pixel[0], pixel[1], pixel[2]};
    const auto left = [pixel](std::size_t ink) {
        return static_cast<std::uint8_t>((255 - pixel[ink]) * (255 - pixel[3]) / 255);
    };
    return {left(0), left(1), left(2)};
}

image::Backdrop colorsOf(const scene::Picture& picture) {
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const auto image = Images::rowsOf(image::flattened(
        image::reduced(picture.image,
                       {std::min(size.width, kMostSide), std::min(size.height, kMostSide)}),
        picture.opacity, scene::kWhite));
    const std::size_t step = image->components();
    std::vector<std::uint8_t> pixels(image->width() *
                                     static_cast<std::size_t>(image->getPixelSize().height) * step);
    std::vector<std::uint8_t> alpha(pixels.size() / step);
    image->readRows(0, image->getPixelSize().height, pixels.data(), alpha.data());
    image::Backdrop result{image->width(), alpha.size() / image->width(), {}};
    for (const std::uint8_t* p = pixels.data(); result.colors.size() < alpha.size(); p += step)
        result.colors.push_back(colorOf(p, step));
    return result;
}

}  // namespace

const image::Backdrop& PictureColors::colors() const {
    if (!colors_)
        colors_ = colorsOf(picture_);
    return *colors_;
}

Sample PictureColors::at(scene::Point onPage) const {
    const scene::Point p = fromPage_.apply(onPage);
    return sampleOf(colors().at(p.x, p.y), 1);
}

Tint PictureColors::average() const {
    std::array<double, 3> sum{};
    for (const Color& color : colors().colors) {
        sum[0] += color.red;
        sum[1] += color.green;
        sum[2] += color.blue;
    }
    const auto count = static_cast<double>(colors().colors.size());
    return {Color::rounded(sum[0] / count, sum[1] / count, sum[2] / count), 1};
}

}  // namespace psrender::plan
