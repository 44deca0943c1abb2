#include "psrender/plan/effect/PixelPicture.h"

#include "psrender/image/MemoryImage.h"

#include <algorithm>
#include <array>
#include <utility>

namespace psrender::plan {

using raster::Area;
using raster::Pixels;
using scene::Affine;
using scene::Picture;

namespace {

constexpr std::uint32_t kOpaque = 255;

std::uint32_t alphaOf(std::uint32_t pixel) {
    return pixel >> 24U;
}

/// Red, green and blue, multiplied by alpha.
std::array<std::uint32_t, 3> colorsOf(std::uint32_t pixel) {
    return {pixel >> 16U & kOpaque, pixel >> 8U & kOpaque, pixel & kOpaque};
}

Picture placed(const Area& area, std::vector<std::uint8_t> colors,
               std::vector<std::uint8_t> alpha) {
    const Drawing::PixelSize size{static_cast<std::int32_t>(area.width),
                                  static_cast<std::int32_t>(area.height)};
    Picture picture;
    picture.image = image::inMemory(size, std::move(colors), std::move(alpha));
    picture.transform = Affine::translation(area.box.x, area.box.y) *
                        Affine::scaling(area.box.width, area.box.height);
    return picture;
}

}  // namespace

void layOver(const Pixels& above, Pixels& below) {
    for (std::size_t i = 0; i < below.argb.size(); ++i) {
        const std::uint32_t top = above.argb[i];
        const std::uint32_t share = kOpaque - alphaOf(top);
        std::uint32_t mixed = 0;
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            const std::uint32_t beneath = below.argb[i] >> shift & kOpaque;
            const std::uint32_t sum =
                (top >> shift & kOpaque) + (beneath * share + kOpaque / 2) / kOpaque;
            mixed |= std::min(sum, kOpaque) << shift;
        }
        below.argb[i] = mixed;
    }
}

bool isEven(const Pixels& pixels) {
    const std::uint32_t first = pixels.argb.front();
    return (first == 0 || alphaOf(first) == kOpaque) &&
           std::ranges::all_of(pixels.argb, [first](std::uint32_t it) { return it == first; });
}

scene::Color colorOnPaper(std::uint32_t pixel) {
    const std::uint32_t paper = kOpaque - alphaOf(pixel);
    const auto [red, green, blue] = colorsOf(pixel);
    return scene::Color::rounded(red + paper, green + paper, blue + paper);
}

bool covers(const Pixels& pixels, const Pixels& other) {
    for (std::size_t i = 0; i < pixels.argb.size(); ++i)
        if (alphaOf(other.argb[i]) > 0 && alphaOf(pixels.argb[i]) == 0)
            return false;
    return true;
}

std::optional<Picture> pictureOf(const Pixels& pixels, const Area& area) {
    std::vector<std::uint8_t> colors;
    std::vector<std::uint8_t> alpha;
    colors.reserve(3 * pixels.argb.size());
    alpha.reserve(pixels.argb.size());
    for (const std::uint32_t pixel : pixels.argb) {
        const std::uint32_t opacity = alphaOf(pixel);
        alpha.push_back(static_cast<std::uint8_t>(opacity));
        for (const std::uint32_t color : colorsOf(pixel)) {
            const std::uint32_t whole =
                opacity == 0 ? kOpaque : (color * kOpaque + opacity / 2) / opacity;
            colors.push_back(static_cast<std::uint8_t>(std::min(whole, kOpaque)));
        }
    }
    const auto [least, most] = std::ranges::minmax(alpha);
    if (most == 0)
        return std::nullopt;
    if (least == kOpaque)
        alpha.clear();
    return placed(area, std::move(colors), std::move(alpha));
}

Picture onPaper(const Pixels& pixels, const Area& area) {
    std::vector<std::uint8_t> colors;
    colors.reserve(3 * pixels.argb.size());
    for (const std::uint32_t pixel : pixels.argb)
        for (const std::uint32_t color : colorsOf(pixel))
            colors.push_back(static_cast<std::uint8_t>(color + kOpaque - alphaOf(pixel)));
    return placed(area, std::move(colors), {});
}

std::optional<Picture> cutOut(const Pixels& seen, const Pixels& shape, const Area& area) {
    std::vector<std::uint8_t> colors;
    std::vector<std::uint8_t> alpha;
    colors.reserve(3 * seen.argb.size());
    alpha.reserve(seen.argb.size());
    bool isSeen = false;
    for (std::size_t i = 0; i < seen.argb.size(); ++i) {
        const bool isShown = alphaOf(shape.argb[i]) > 0;
        isSeen = isSeen || isShown;
        alpha.push_back(isShown ? kOpaque : 0);
        const std::uint32_t paper = kOpaque - alphaOf(seen.argb[i]);
        for (const std::uint32_t color : colorsOf(seen.argb[i]))
            colors.push_back(static_cast<std::uint8_t>(isShown ? color + paper : kOpaque));
    }
    if (!isSeen)
        return std::nullopt;
    Picture picture = placed(area, std::move(colors), std::move(alpha));
    picture.isCutOut = true;
    return picture;
}

}  // namespace psrender::plan
