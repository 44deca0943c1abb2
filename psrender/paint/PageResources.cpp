#include "psrender/paint/PageResources.h"

#include "Drawing/ColorFieldBrush.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/PatternBrush.h"
#include "Print/PrintForm.h"
#include "psrender/paint/Conversions.h"
#include "psrender/paint/ItemPainter.h"

#include <algorithm>
#include <utility>
#include <vector>

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

Drawing::LineJoin joinOf(scene::Join join) {
    switch (join) {
        case scene::Join::miter:
            return Drawing::LineJoin::miter;
        case scene::Join::round:
            return Drawing::LineJoin::round;
        case scene::Join::bevel:
            break;
    }
    return Drawing::LineJoin::bevel;
}

Drawing::GradientSpread spreadOf(scene::Spread spread) {
    switch (spread) {
        case scene::Spread::repeat:
            return Drawing::GradientSpread::repeat;
        case scene::Spread::reflect:
            return Drawing::GradientSpread::reflect;
        case scene::Spread::pad:
            break;
    }
    return Drawing::GradientSpread::pad;
}

SmartPtr<Drawing::Color> colorOf(const scene::Color& color) {
    return makeObject<Drawing::RGBColor>(color.red, color.green, color.blue);
}

SmartPtr<Drawing::GradientBrush> gradientBrush(const scene::Gradient& gradient) {
    Core::Vector<Drawing::StopPoint> stops;
    for (const scene::ColorStop& stop : *gradient.stops)
        stops.push_back({static_cast<float>(stop.position), colorOf(stop.color)});
    const Drawing::Matrix matrix = matrixOf(gradient.transform);
    SmartPtr<Drawing::GradientBrush> brush;
    if (gradient.kind == scene::Gradient::Kind::linear)
        brush = makeObject<Drawing::LinearGradientBrush>(
            pointOf(gradient.start), pointOf(gradient.end), std::move(stops), matrix);
    else
        brush = makeObject<Drawing::RadialGradientBrush>(
            pointOf(gradient.start), static_cast<float>(gradient.startRadius),
            pointOf(gradient.end), static_cast<float>(gradient.endRadius), std::move(stops),
            matrix);
    brush->setSpread(spreadOf(gradient.spread));
    return brush;
}

SmartPtr<Drawing::Brush> fieldBrush(const scene::ColorField& field) {
    std::vector<std::uint8_t> colors;
    colors.reserve(field.colors.size() * 3);
    for (const scene::Color& color : field.colors)
        for (const std::uint8_t level : {color.red, color.green, color.blue})
            colors.push_back(level);
    const scene::Rect& box = field.box;
    return makeObject<Drawing::ColorFieldBrush>(
        pointOf({box.x, box.y}),
        Drawing::SizeF{static_cast<float>(box.width), static_cast<float>(box.height)},
        static_cast<std::int32_t>(field.columns), static_cast<std::int32_t>(field.rows),
        Core::ByteArray(std::move(colors)), matrixOf(field.transform));
}

}  // namespace

SmartPtr<Drawing::Brush> PageResources::brushOf(const Paint& paint) {
    if (const scene::Color* color = paint.color())
        return makeObject<Drawing::SolidColorBrush>(colorOf(*color));
    if (const scene::Gradient* gradient = paint.gradient())
        return gradientBrush(*gradient);
    if (const scene::ColorField* field = paint.field())
        return fieldBrush(*field);
    if (const scene::Pattern* pattern = paint.pattern())
        return makeObject<Drawing::PatternBrush>(tileOf(*pattern), matrixOf(pattern->transform));
    return nullptr;
}

/// A tile belongs to its content and sides.
SmartPtr<Drawing::IOutputContext> PageResources::tileOf(const scene::Pattern& pattern) {
    ContextPtr& tile = tiles_[pattern.content];
    if (!tile) {
        tile = document_.createPatternOutputContext(static_cast<float>(pattern.tile.width),
                                                    static_cast<float>(pattern.tile.height));
        auto& form = dynamic_cast<Drawing::Print::PrintForm&>(*tile);
        const scene::Rect& shown = pattern.bounds;
        if (!pattern.isClipped)
            form.setBounds(static_cast<float>(shown.x), static_cast<float>(shown.y),
                           static_cast<float>(shown.width), static_cast<float>(shown.height));
        ItemPainter(form, *this).paint(*pattern.content);
    }
    return tile;
}

SmartPtr<Drawing::IOutputContext> PageResources::fragmentOf(
    const std::shared_ptr<const scene::ItemList>& symbol) {
    ContextPtr& fragment = fragments_[symbol];
    if (!fragment) {
        fragment = document_.createDocumentFragment(0, 0);
        ItemPainter(dynamic_cast<Drawing::Print::PrintDocument&>(*fragment), *this).paint(*symbol);
    }
    return fragment;
}

SmartPtr<Drawing::Stroke> PageResources::strokeOf(const Paint& paint,
                                                  const scene::StrokeStyle& style) {
    if (!isPainted(paint))
        return nullptr;
    auto stroke = makeObject<Drawing::Stroke>(brushOf(paint), static_cast<float>(style.width));
    stroke->setDashCap(capOf(style.cap));
    stroke->setLineJoin(joinOf(style.join));
    stroke->setMiterLimit(static_cast<float>(std::max(1.0, style.miterLimit)));
    stroke->setDashArray({style.dashes.begin(), style.dashes.end()});
    stroke->setDashOffset(static_cast<float>(style.dashOffset));
    return stroke;
}

}  // namespace psrender::paint
