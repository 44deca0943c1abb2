#include "psrender/plan/picture/PictureStage.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/Carried.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace psrender::plan {

using image::PixelRect;
using scene::Affine;
using scene::Picture;

namespace {

constexpr double kPointsAnInch = 72;

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

/// Takes the margin away in which all pixels are clear. False if nothing is left.
bool trim(Picture& picture) {
    const PixelRect seen = image::rowsOf(picture.image)->visiblePart();
    if (seen.width == 0 || seen.height == 0)
        return false;
    const Drawing::PixelSize size = picture.image->getPixelSize();
    if (seen.width < size.width || seen.height < size.height) {
        picture.image = image::cropped(picture.image, seen);
        picture.transform = picture.transform * shareOf(seen, size);
    }
    return true;
}

}  // namespace

void PictureStage::on(Picture picture) {
    if (picture.opacity <= 0 || picture.transform.determinant() == 0)
        return;
    if (!kWithinReach.contains(scene::Rect{0, 0, 1, 1}.mapped(picture.transform))) {
        warnings_.add("images that reach beyond a million points are left out");
        return;
    }
    if (!trim(picture))
        return;
    reduce(picture);
    pass(std::move(picture));
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

}  // namespace psrender::plan
