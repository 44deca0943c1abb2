#include "psrender/plan/colour/Opacity.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

namespace {

std::uint8_t blend(std::uint8_t component, double opacity) {
    constexpr double kWhite = 255;
    return static_cast<std::uint8_t>(std::lround(component * opacity + kWhite * (1 - opacity)));
}

scene::Color blend(const scene::Color& color, double opacity) {
    return {blend(color.red, opacity), blend(color.green, opacity), blend(color.blue, opacity)};
}

}  // namespace

scene::Paint OpacityStack::overWhite(const scene::Paint& paint) {
    const double opacity = std::clamp(paint.opacity * current(), 0.0, 1.0);
    if (paint.kind == scene::Paint::Kind::none || !(opacity > 0))
        return {};
    scene::Paint opaque = paint;
    opaque.opacity = 1;
    opaque.color = blend(paint.color, opacity);
    if (paint.pattern && opacity < 1) {
        auto pattern = std::make_shared<scene::Pattern>(*paint.pattern);
        pattern->content = paled(pattern->content, opacity);
        opaque.pattern = std::move(pattern);
    }
    return opaque;
}

OpacityStack::Tile OpacityStack::paled(const Tile& tile, double opacity) {
    Tile& known = paled_[{tile, opacity}];
    if (known)
        return known;
    auto result = std::make_shared<scene::ItemList>(*tile);
    for (scene::Item& item : result->items)
        if (auto* shape = std::get_if<scene::Shape>(&item))
            for (scene::Paint* paint : {&shape->fill, &shape->stroke})
                paint->color = blend(paint->color, opacity);
    return known = std::move(result);
}

}  // namespace psrender::plan
