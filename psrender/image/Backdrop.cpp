#include "psrender/image/Backdrop.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace psrender::image {

using scene::Color;

namespace {

/// Two neighbouring spots and how far on the way from one to the other a place is.
struct Between {
    std::size_t first;
    std::size_t second;
    double share;
};

/// What is no number counts as the start.
Between spotsAt(double place, std::size_t count) {
    const auto last = static_cast<double>(count - 1);
    const double wanted = place * static_cast<double>(count) - 0.5;
    const double spot = wanted > 0 ? std::min(wanted, last) : 0;
    const auto first = static_cast<std::size_t>(spot);
    return {first, std::min(first + 1, count - 1), spot - std::floor(spot)};
}

Color mix(const Color& a, const Color& b, double share) {
    const auto part = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(std::lerp(double{1} * from, to, share)));
    };
    return {part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue)};
}

}  // namespace

Color Backdrop::at(double x, double y) const {
    const Between across = spotsAt(x, width);
    const Between down = spotsAt(y, height);
    const auto inRow = [&](std::size_t row) {
        return mix(colors[row * width + across.first], colors[row * width + across.second],
                   across.share);
    };
    return mix(inRow(down.first), inRow(down.second), down.share);
}

}  // namespace psrender::image
