#include "psrender/paint/Brushes.h"

#include "Drawing/GradientBrush.h"
#include "Drawing/PatternBrush.h"
#include "psrender/paint/Conversions.h"
#include "psrender/paint/ItemPainter.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace psrender::paint {

using Core::makeObject;
using Core::SmartPtr;
using scene::Paint;

namespace {

Drawing::LineCap capOf(scene::Cap cap) {
    switch (cap) {
        case scene::Cap::butt:
            return Drawing::LineCap::butt;
        case scene::Cap::round:
            return Drawing::LineCap::round;
        case scene::Cap::square:
            break;
    }
    return Drawing::LineCap::square;
}

/// The back end writes dashes at twice their length, the offset as it is: they go in halved.
Core::Vector<float> dashesOf(const scene::StrokeStyle& style) {
    Core::Vector<float> dashes;
    for (const double dash : style.dashes)
        dashes.push_back(static_cast<float>(dash / 2));
    return dashes;
}

/// A bevelled join is a mitre that is always cut (PLRM `setmiterlimit`).
double miterLimitOf(const scene::StrokeStyle& style) {
    return style.join == scene::Join::miter ? std::max(1.0, style.miterLimit) : 1.0;
}

SmartPtr<Drawing::Color> colorOf(const scene::Color& color) {
    return makeObject<Drawing::RGBColor>(color.red, color.green, color.blue);
}

Drawing::XPointF pointOf(scene::Point p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y)};
}

SmartPtr<Drawing::Brush> gradientBrush(const scene::Gradient& gradient) {
    Core::Vector<Drawing::StopPoint> stops;
    for (const scene::ColorStop& stop : *gradient.stops)
        stops.push_back({static_cast<float>(stop.position), colorOf(stop.color)});
    const Drawing::Matrix matrix = matrixOf(gradient.transform);
    if (gradient.kind == scene::Gradient::Kind::linear)
        return makeObject<Drawing::LinearGradientBrush>(
            pointOf(gradient.start), pointOf(gradient.end), std::move(stops), matrix);
    return makeObject<Drawing::RadialGradientBrush>(
        pointOf(gradient.end), static_cast<float>(gradient.startRadius),
        static_cast<float>(gradient.endRadius), std::move(stops), matrix);
}

}  // namespace

SmartPtr<Drawing::Brush> Brushes::brushOf(const Paint& paint) {
    switch (paint.kind) {
        case Paint::Kind::none:
            break;
        case Paint::Kind::solid:
            return makeObject<Drawing::SolidColorBrush>(colorOf(paint.color));
        case Paint::Kind::gradient:
            return gradientBrush(*paint.gradient);
        case Paint::Kind::pattern:
            return makeObject<Drawing::PatternBrush>(contextOf(*paint.pattern),
                                                     matrixOf(paint.pattern->transform));
    }
    return nullptr;
}

SmartPtr<Drawing::IOutputContext> Brushes::contextOf(const scene::Pattern& pattern) {
    auto& tile = tiles_[pattern.content];
    if (!tile) {
        tile = context_.createPatternOutputContext(static_cast<float>(pattern.tile.width),
                                                   static_cast<float>(pattern.tile.height));
        ItemPainter painter(*tile, *this);
        for (const scene::Item& item : pattern.content->items)
            std::visit(painter, item);
    }
    return tile;
}

SmartPtr<Drawing::Stroke> Brushes::strokeOf(const Paint& paint, const scene::StrokeStyle& style) {
    if (paint.kind == Paint::Kind::none)
        return nullptr;
    auto stroke = makeObject<Drawing::Stroke>(brushOf(paint), static_cast<float>(style.width));
    stroke->setDashCap(capOf(style.cap));
    stroke->setMiterLimit(static_cast<float>(miterLimitOf(style)));
    stroke->setDashArray(dashesOf(style));
    stroke->setDashOffset(static_cast<float>(style.dashOffset));
    return stroke;
}

}  // namespace psrender::paint
