#include "psrender/plan/picture/TintedPicture.h"

#include "Drawing/TintedImage.h"
#include "psrender/image/DerivedImages.h"

#include <optional>
#include <vector>

namespace psrender::plan {

using Drawing::ColorSpaceType;
using Drawing::TintedImage;
using scene::Color;

namespace {

/// The components of `color` in a colour space, 0 to 1; nothing if it is not in it.
std::optional<std::vector<double>> componentsOf(const Color& color, ColorSpaceType space) {
    constexpr double kLevels = 255;
    const std::vector<double> light{color.red / kLevels, color.green / kLevels,
                                    color.blue / kLevels};
    switch (space) {
        case ColorSpaceType::rgb:
            return light;
        case ColorSpaceType::cmyk:
            return {{1 - light[0], 1 - light[1], 1 - light[2], 0}};
        case ColorSpaceType::gray:
            if (color.red == color.green && color.green == color.blue)
                return {{light[0]}};
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

}  // namespace

/// Each component runs between the tint's share and what that leaves.
Core::SmartPtr<Drawing::Image> tinted(const Core::SmartPtr<Drawing::Image>& image,
                                      const Tint& tint) {
    if (!(tint.alpha > 0))
        return image;
    const auto components = componentsOf(tint.color, image->getColorSpace()->getType());
    if (!components || image->hasAlpha())
        return image::flattened(image, 1 - tint.alpha, tint.color);
    std::vector<TintedImage::Range> ranges;
    for (const double component : *components)
        ranges.push_back({component * tint.alpha, component * tint.alpha + (1 - tint.alpha)});
    return Core::makeObject<TintedImage>(image, std::move(ranges));
}

}  // namespace psrender::plan
