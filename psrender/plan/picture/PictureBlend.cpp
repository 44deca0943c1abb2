#include "psrender/plan/picture/PictureBlend.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/geometry/Boxes.h"
#include "psrender/plan/picture/PictureCrop.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using image::Backdrop;
using scene::Affine;
using scene::Color;
using scene::Point;

namespace {

constexpr double kMostSpots = 128;  // to a side

std::size_t spotsFor(double points) {
    return static_cast<std::size_t>(std::clamp(std::ceil(points), 1.0, kMostSpots));
}

}  // namespace

Backdrop backdropOf(const BlendLayer& layer, const Affine& picture, std::size_t count,
                    BlendBudget& budget) {
    Backdrop result{
        spotsFor(std::hypot(picture.a, picture.b)), spotsFor(std::hypot(picture.c, picture.d)), {}};
    const auto place = [](std::size_t index, std::size_t spots) {
        return (static_cast<double>(index) + 0.5) / static_cast<double>(spots);
    };
    for (std::size_t y = 0; y < result.height; ++y)
        for (std::size_t x = 0; x < result.width; ++x) {
            if (budget.isSpent())
                return {1, 1, {Color{255, 255, 255}}};
            const Point p = picture.apply({place(x, result.width), place(y, result.height)});
            result.colors.push_back(colorOf(layer.lookAt(p, count, budget).at(p)));
        }
    const Color first = result.colors.front();
    if (std::ranges::all_of(result.colors, [&](const Color& color) { return color == first; }))
        return {1, 1, {first}};
    return result;
}

std::optional<scene::Picture> tinted(const scene::Picture& picture, const scene::Rect& box,
                                     const Tint& tint) {
    if (!isUpright(picture.transform) || picture.image->hasAlpha() ||
        picture.image->getColorSpace()->getComponentCount() > 3)
        return std::nullopt;
    auto part = croppedTo(picture, box, Border::outside);
    if (part)
        part->image = image::flattened(part->image, 1 - tint.alpha, tint.color);
    return part;
}

}  // namespace psrender::plan
