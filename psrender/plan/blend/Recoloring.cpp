#include "psrender/plan/blend/Recoloring.h"

#include "psrender/plan/gradient/ColorStops.h"
#include "psrender/plan/picture/TintedPicture.h"

#include <algorithm>

namespace psrender::plan {

using scene::Color;
using scene::Paint;

namespace {

Color beneathTint(const Tint& tint, const Color& color) {
    return over(tint, {color, 1}).color;
}

std::shared_ptr<const scene::Gradient> withStops(const scene::Gradient& gradient,
                                                 ColorStops stops) {
    auto result = std::make_shared<scene::Gradient>(gradient);
    result->stops = std::make_shared<const ColorStops>(std::move(stops));
    return result;
}

}  // namespace

Paint Recoloring::beneath(const Tint& tint, const Paint& paint) {
    if (!(tint.alpha > 0))
        return paint;
    Paint result = paint;
    if (const Color* color = paint.color())
        result.source = beneathTint(tint, *color);
    else if (const scene::Gradient* gradient = paint.gradient())
        result.source = withStops(*gradient, over({{0, tint.color, tint.alpha}}, *gradient->stops));
    else if (const scene::Pattern* pattern = paint.pattern()) {
        auto other = std::make_shared<scene::Pattern>(*pattern);
        other->content = beneath(tint, pattern->content);
        result.source = std::shared_ptr<const scene::Pattern>(std::move(other));
    } else if (const scene::ColorField* field = paint.field()) {
        auto other = std::make_shared<scene::ColorField>(*field);
        for (Color& sample : other->colors)
            sample = beneathTint(tint, sample);
        result.source = std::shared_ptr<const scene::ColorField>(std::move(other));
    }
    return result;
}

Paint Recoloring::overWhite(const Paint& paint, double share) {
    const double opacity = std::clamp(paint.opacity * share, 0.0, 1.0);
    if (!isPainted(paint) || !(opacity > 0))
        return {};
    Paint opaque{paint.source};
    if (const scene::Gradient* gradient = paint.gradient();
        gradient != nullptr && !isOpaque(*gradient->stops))
        opaque.source = withStops(*gradient, plan::overWhite(*gradient->stops));
    return beneath({scene::kWhite, 1 - opacity}, opaque);
}

Recoloring::List Recoloring::beneath(const Tint& tint, const List& list) {
    List& known = known_[{list, tint.color.red, tint.color.green, tint.color.blue, tint.alpha}];
    if (!known) {
        auto result = std::make_shared<scene::ItemList>(*list);
        for (scene::Item& item : result->items)
            recolor(tint, item);
        known = std::move(result);
    }
    return known;
}

void Recoloring::recolor(const Tint& tint, scene::Item& item) {
    const auto recolorPaints = [&](auto& painted) {
        painted.fill = beneath(tint, painted.fill);
        painted.stroke = beneath(tint, painted.stroke);
    };
    if (auto* shape = std::get_if<scene::Shape>(&item))
        recolorPaints(*shape);
    else if (auto* text = std::get_if<scene::Text>(&item))
        recolorPaints(*text);
    else if (auto* picture = std::get_if<scene::Picture>(&item))
        picture->image = tinted(picture->image, tint);
    else if (auto* placement = std::get_if<scene::Placement>(&item))
        placement->symbol = beneath(tint, placement->symbol);
}

}  // namespace psrender::plan
