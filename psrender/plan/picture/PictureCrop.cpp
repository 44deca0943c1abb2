#include "psrender/plan/picture/PictureCrop.h"

#include "psrender/image/DerivedImages.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace psrender::plan {

using Images::PixelRect;
using scene::Affine;
using scene::Rect;

Affine shareOf(const PixelRect& part, const Drawing::PixelSize& size) {
    const double width = size.width;
    const double height = size.height;
    return {part.width / width, 0, 0, part.height / height, part.x / width, part.y / height};
}

void cropTo(scene::Picture& picture, const Rect& box) {
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const Affine toPixels = Affine::scaling(size.width, size.height) * picture.transform.inverse();
    const Rect whole{0, 0, double{1} * size.width, double{1} * size.height};
    const auto shown = box.mapped(toPixels).common(whole);
    if (!shown)
        return;
    const auto pixel = [](double at) { return static_cast<std::int32_t>(at); };
    const PixelRect part{pixel(std::floor(shown->x)), pixel(std::floor(shown->y)),
                         pixel(std::ceil(shown->right()) - std::floor(shown->x)),
                         pixel(std::ceil(shown->bottom()) - std::floor(shown->y))};
    if (part.width <= 0 || part.height <= 0 ||
        (part.width == size.width && part.height == size.height))
        return;
    picture.image = image::cropped(picture.image, part);
    picture.transform = picture.transform * shareOf(part, size);
}

}  // namespace psrender::plan
