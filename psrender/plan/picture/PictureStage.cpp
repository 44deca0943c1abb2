#include "psrender/plan/picture/PictureStage.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/geometry/Reach.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace psrender::plan {

using image::PixelRect;
using scene::Affine;
using scene::Picture;

namespace {

/// The pixels of an image are read into one array of strings of 256 bytes, of which interpreters
/// take 65535; one string may be empty.
constexpr std::int32_t kMostBytes = 256 * 65534;
constexpr double kPointsAnInch = 72;

bool isWithinReach(const Affine& map) {
    constexpr std::array<scene::Point, 4> kCorners{{{0, 0}, {1, 0}, {0, 1}, {1, 1}}};
    return std::ranges::all_of(kCorners, [&](const scene::Point& corner) {
        const scene::Point p = map.apply(corner);
        return std::abs(p.x) <= kReach && std::abs(p.y) <= kReach;
    });
}

/// The number of pixels that give `most` dots an inch over `length` points.
std::int32_t pixelsFor(double length, double most, std::int32_t pixels) {
    const double wanted = std::round(length / kPointsAnInch * most);
    return static_cast<std::int32_t>(std::clamp<double>(wanted, 1, pixels));
}

/// The part of the square of side 1 that `part` of an image covers, as a map of the whole.
Affine shareOf(const PixelRect& part, const Drawing::PixelSize& size) {
    const double width = size.width;
    const double height = size.height;
    return {part.width / width, 0, 0, part.height / height, part.x / width, part.y / height};
}

Picture partOf(const Picture& picture, const PixelRect& part) {
    return {image::cropped(picture.image, part),
            picture.transform * shareOf(part, picture.image->getPixelSize()), picture.opacity};
}

/// Takes the margin away in which all pixels are clear. False if nothing is left.
bool trim(Picture& picture) {
    const PixelRect seen = image::rowsOf(picture.image)->visiblePart();
    if (seen.width == 0 || seen.height == 0)
        return false;
    picture = partOf(picture, seen);
    return true;
}

}  // namespace

void PictureStage::take(scene::Item item) {
    if (auto* picture = std::get_if<Picture>(&item))
        takePicture(std::move(*picture));
    else
        next_.take(std::move(item));
}

void PictureStage::takePicture(Picture picture) {
    if (picture.opacity <= 0 || picture.transform.determinant() == 0)
        return;
    if (!isWithinReach(picture.transform)) {
        warnings_.add("images that reach beyond a million points are left out");
        return;
    }
    if (!trim(picture))
        return;
    reduce(picture);
    cutIntoStrips(picture);
}

void PictureStage::reduce(Picture& picture) const {
    if (mostDotsPerInch_ <= 0)
        return;
    const Affine& map = picture.transform;
    const Drawing::PixelSize size = picture.image->getPixelSize();
    picture.image = image::reduced(
        picture.image, {pixelsFor(std::hypot(map.a, map.b), mostDotsPerInch_, size.width),
                        pixelsFor(std::hypot(map.c, map.d), mostDotsPerInch_, size.height)});
}

/// Only an image whose single row is too large is cut into columns, too. A grey one may become
/// coloured when it is blended with what lies beneath it.
void PictureStage::cutIntoStrips(const Picture& picture) {
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const std::int32_t components =
        std::max(3, picture.image->getColorSpace()->getComponentCount());
    const std::int32_t width = std::min(size.width, kMostBytes / components);
    const std::int32_t height = std::min(size.height, kMostBytes / (components * width));
    for (std::int32_t y = 0; y < size.height; y += height)
        for (std::int32_t x = 0; x < size.width; x += width) {
            const PixelRect part{x, y, std::min(width, size.width - x),
                                 std::min(height, size.height - y)};
            next_.take(partOf(picture, part));
        }
}

}  // namespace psrender::plan
