#include "psrender/paint/Conversions.h"

namespace psrender::paint {

using Core::makeObject;
using Core::SmartPtr;
using scene::Outline;

Drawing::Matrix matrixOf(const scene::Affine& m) {
    const auto number = [](double value) { return static_cast<float>(value); };
    return {number(m.a), number(m.b), number(m.c), number(m.d), number(m.e), number(m.f)};
}

Drawing::XPointF pointOf(scene::Point p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y)};
}

SmartPtr<Drawing::Path> pathOf(const Outline& outline, scene::FillRule rule) {
    auto path = makeObject<Drawing::Path>();
    if (rule == scene::FillRule::evenOdd)
        path->setFillRule(Drawing::FillRule::evenOdd);
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

}  // namespace psrender::paint
