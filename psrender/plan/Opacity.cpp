#include "psrender/plan/Opacity.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

namespace {

std::uint8_t blend(std::uint8_t component, double opacity) {
    constexpr double kWhite = 255;
    return static_cast<std::uint8_t>(std::lround(component * opacity + kWhite * (1 - opacity)));
}

}  // namespace

scene::Paint OpacityStack::overWhite(const scene::Paint& paint) const {
    const double opacity = std::clamp(paint.opacity * current(), 0.0, 1.0);
    if (paint.kind == scene::Paint::Kind::none || !(opacity > 0))
        return {};
    scene::Paint opaque = paint;
    opaque.opacity = 1;
    opaque.color = {blend(paint.color.red, opacity), blend(paint.color.green, opacity),
                    blend(paint.color.blue, opacity)};
    return opaque;
}

}  // namespace psrender::plan
