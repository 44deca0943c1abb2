#include "psrender/paint/Painter.h"

#include "Drawing/Brush.h"
#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/SizeF.h"
#include "Drawing/Stroke.h"

#include <algorithm>
#include <optional>

namespace psrender::paint {

namespace {

using Core::makeObject;
using Core::SmartPtr;
using scene::Outline;
using scene::Paint;
using scene::Shape;

SmartPtr<Drawing::Brush> brushOf(const Paint& paint) {
    if (paint.kind == Paint::Kind::none)
        return nullptr;
    return makeObject<Drawing::SolidColorBrush>(
        makeObject<Drawing::RGBColor>(paint.color.red, paint.color.green, paint.color.blue));
}

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

SmartPtr<Drawing::Stroke> strokeOf(const Paint& paint, const scene::StrokeStyle& style) {
    if (paint.kind == Paint::Kind::none)
        return nullptr;
    const auto stroke =
        makeObject<Drawing::Stroke>(brushOf(paint), static_cast<float>(style.width));
    stroke->setDashCap(capOf(style.cap));
    stroke->setMiterLimit(static_cast<float>(miterLimitOf(style)));
    stroke->setDashArray(dashesOf(style));
    stroke->setDashOffset(static_cast<float>(style.dashOffset));
    return stroke;
}

Drawing::Matrix matrixOf(const scene::Affine& m) {
    const auto number = [](double value) { return static_cast<float>(value); };
    return {number(m.a), number(m.b), number(m.c), number(m.d), number(m.e), number(m.f)};
}

SmartPtr<Drawing::Path> pathOf(const Outline& outline) {
    const auto path = makeObject<Drawing::Path>();
    path->reserve(outline.verbs().size());
    const scene::Point* next = outline.points().data();
    const auto x = [&](int i) { return static_cast<float>(next[i].x); };
    const auto y = [&](int i) { return static_cast<float>(next[i].y); };
    for (const Outline::Verb verb : outline.verbs()) {
        switch (verb) {
            case Outline::Verb::move:
                path->moveTo(x(0), y(0));
                ++next;
                break;
            case Outline::Verb::line:
                path->lineTo(x(0), y(0));
                ++next;
                break;
            case Outline::Verb::cubic:
                path->curveTo(x(0), y(0), x(1), y(1), x(2), y(2));
                next += 3;
                break;
            case Outline::Verb::close:
                path->close();
                break;
        }
    }
    return path;
}

/// Draws the shapes of one page and tells the context only what changes from one to the next.
class PagePainter {
public:
    explicit PagePainter(Drawing::IOutputContext& context) : context_(context) {}

    /// Always as a path: the rectangle operation would lose the fill of a dashed one.
    void operator()(const Shape& shape) {
        if (transform_ != shape.transform)
            context_.setTransform(matrixOf(*(transform_ = shape.transform)));
        if (fill_ != shape.fill)
            context_.setFill(brushOf(*(fill_ = shape.fill)));
        if (stroke_ != shape.stroke || style_ != shape.strokeStyle)
            context_.setStroke(strokeOf(*(stroke_ = shape.stroke), style_ = shape.strokeStyle));
        context_.drawPath(pathOf(*shape.outline));
    }
    void operator()(const scene::BeginGroup& /*group*/) {}
    void operator()(const scene::EndGroup& /*end*/) {}

private:
    Drawing::IOutputContext& context_;
    std::optional<scene::Affine> transform_;
    std::optional<Paint> fill_;
    std::optional<Paint> stroke_;
    scene::StrokeStyle style_;
};

}  // namespace

void paintPage(Drawing::IOutputContext& context, const scene::Page& page) {
    context.startPage({static_cast<float>(page.width), static_cast<float>(page.height)});
    context.setTransform({});
    PagePainter painter(context);
    for (const scene::Item& item : page.items)
        std::visit(painter, item);
    context.endPage();
}

}  // namespace psrender::paint
