#include "psrender/plan/picture/PictureStage.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/Carried.h"
#include "psrender/plan/picture/PictureCrop.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace psrender::plan {

using Images::PixelRect;
using scene::Affine;
using scene::Picture;

namespace {

constexpr double kPointsAnInch = 72;
constexpr double kFineDotsPerInch = 600;

/// The number of pixels that give `most` dots an inch over `length` points.
std::int32_t pixelsFor(double length, double most, std::int32_t pixels) {
    const double wanted = std::round(length / kPointsAnInch * most);
    return static_cast<std::int32_t>(std::clamp<double>(wanted, 1, pixels));
}

/// Whether single pixels may be seen in print.
bool isEnlarged(const Picture& picture) {
    const Affine& map = picture.transform;
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const double dot = kPointsAnInch / kFineDotsPerInch;
    return std::hypot(map.a, map.b) > size.width * dot ||
           std::hypot(map.c, map.d) > size.height * dot;
}

/// Takes the margin away in which all pixels are clear. False if nothing is left.
bool trim(Picture& picture) {
    const PixelRect seen = Images::rowsOf(picture.image)->visiblePart();
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
    if (picture.isSmooth && !picture.isCutOut && isEnlarged(picture))
        picture.image = image::smoothed(picture.image);
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
