#include "Print/ColorConverter.h"

#include "Core/Exception.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Drawing::Print {

namespace {

constexpr double kByte = 255;

std::size_t componentsOf(ColorSpaceType space) {
    return static_cast<std::size_t>(ColorSpace(space).getComponentCount());
}

double luminanceOf(const Components& rgb) {
    return 0.3 * rgb[0] + 0.59 * rgb[1] + 0.11 * rgb[2];
}

Components rgbOf(const Components& cmyk) {
    const auto light = [&](double ink) { return 1 - std::min(1.0, ink + cmyk[3]); };
    return {light(cmyk[0]), light(cmyk[1]), light(cmyk[2]), 0};
}

Components cmykOf(const Components& rgb) {
    const double black = 1 - std::max({rgb[0], rgb[1], rgb[2]});
    return {1 - rgb[0] - black, 1 - rgb[1] - black, 1 - rgb[2] - black, black};
}

/// The conversions that every interpreter knows.
class PlainConverter : public ColorConverter {
public:
    explicit PlainConverter(ColorSpaceType target) : ColorConverter(target) {}

    [[nodiscard]] Components convert(ColorSpaceType from, const Components& color) const override {
        if (from == getTarget())
            return color;
        switch (getTarget()) {
            case ColorSpaceType::gray:
                return {luminanceOf(from == ColorSpaceType::cmyk ? rgbOf(color) : color), 0, 0, 0};
            case ColorSpaceType::cmyk:
                return from == ColorSpaceType::gray ? Components{0, 0, 0, 1 - color[0]}
                                                    : cmykOf(color);
            default:
                return from == ColorSpaceType::gray ? Components{color[0], color[0], color[0], 0}
                                                    : rgbOf(color);
        }
    }
};

}  // namespace

ColorConverter::ColorConverter(ColorSpaceType target) : target_(target) {
    if (target == ColorSpaceType::oneBit)
        throw Core::FormatException("ColorConverter", 1,
                                    "a document's colours are grey, RGB or CMYK, not one bit");
}

ColorConverter::~ColorConverter() = default;

Core::SmartPtr<ColorConverter> ColorConverter::plain(ColorSpaceType target) {
    return Core::makeObject<PlainConverter>(target);
}

/// Neighbours are often equal, so the latest pixel is remembered.
void ColorConverter::convertPixels(ColorSpaceType from, std::span<const std::uint8_t> pixels,
                                   std::span<std::uint8_t> converted) const {
    const std::size_t in = componentsOf(from);
    const std::size_t out = componentsOf(target_);
    std::array<std::uint8_t, 4> latest{};
    for (std::size_t at = 0, to = 0; at < pixels.size(); at += in, to += out) {
        const auto pixel = pixels.subspan(at, in);
        if (at > 0 && std::ranges::equal(pixel, std::span(latest).first(in))) {
            std::ranges::copy(converted.subspan(to - out, out),
                              converted.begin() + static_cast<std::ptrdiff_t>(to));
            continue;
        }
        Components color{};
        for (std::size_t i = 0; i < in; ++i)
            color[i] = (latest[i] = pixel[i]) / kByte;
        const Components result = convert(from, color);
        for (std::size_t i = 0; i < out; ++i)
            converted[to + i] =
                static_cast<std::uint8_t>(std::lround(std::clamp(result[i], 0.0, 1.0) * kByte));
    }
}

}  // namespace Drawing::Print
