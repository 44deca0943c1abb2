#include "psrender/paint/Brushes.h"

#include <algorithm>

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

}  // namespace

SmartPtr<Drawing::Brush> Brushes::brushOf(const Paint& paint) {
    if (paint.kind == Paint::Kind::none)
        return nullptr;
    return makeObject<Drawing::SolidColorBrush>(
        makeObject<Drawing::RGBColor>(paint.color.red, paint.color.green, paint.color.blue));
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
