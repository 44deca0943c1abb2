#include "psrender/plan/picture/PictureCrop.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/geometry/Boxes.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::Rect;

namespace {

/// Whole pixels.
std::optional<image::PixelRect> pixelsIn(const scene::Picture& picture, const Rect& box,
                                         Border border) {
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const auto share = commonBox(mappedBox(box, picture.transform.inverse()), Rect{0, 0, 1, 1});
    if (!share)
        return std::nullopt;
    const auto range = [border](double from, double length, std::int32_t count) {
        constexpr double kRounding = 1e-6;
        const double begin = from * count;
        const double end = (from + length) * count;
        const bool isInside = border == Border::inside;
        const double first =
            isInside ? std::floor(begin + kRounding) : std::ceil(begin - kRounding);
        const double last = isInside ? std::ceil(end - kRounding) : std::floor(end + kRounding);
        return std::pair{static_cast<std::int32_t>(first), static_cast<std::int32_t>(last - first)};
    };
    const auto [x, width] = range(share->x, share->width, size.width);
    const auto [y, height] = range(share->y, share->height, size.height);
    if (width <= 0 || height <= 0)
        return std::nullopt;
    return image::PixelRect{x, y, width, height};
}

}  // namespace

bool isUpright(const Affine& map) {
    return map.b == 0 && map.c == 0 && map.a > 0 && map.d > 0;
}

std::optional<scene::Picture> croppedTo(const scene::Picture& picture, const Rect& box,
                                        Border border) {
    const auto part = pixelsIn(picture, box, border);
    if (!part)
        return std::nullopt;
    const Drawing::PixelSize size = picture.image->getPixelSize();
    const double width = size.width;
    const double height = size.height;
    const Affine share{part->width / width, 0, 0, part->height / height, part->x / width,
                       part->y / height};
    return scene::Picture{image::cropped(picture.image, *part), picture.transform * share,
                          picture.opacity};
}

}  // namespace psrender::plan
