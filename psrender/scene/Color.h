#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace psrender::scene {

/// A device RGB colour, 0 to 255 a component.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    /// The nearest one, components beyond the range cut off.
    static Color rounded(double red, double green, double blue) {
        const auto level = [](double value) {
            return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
        };
        return {level(red), level(green), level(blue)};
    }
    /// The colour at a share of the way from `a` to `b`.
    static Color mixed(const Color& a, const Color& b, double share) {
        return rounded(std::lerp(a.red, b.red, share), std::lerp(a.green, b.green, share),
                       std::lerp(a.blue, b.blue, share));
    }

    friend bool operator==(const Color&, const Color&) = default;
};

inline constexpr Color kWhite{255, 255, 255};

}  // namespace psrender::scene
