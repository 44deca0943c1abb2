#include "psrender/plan/gradient/GradientStage.h"

#include "psrender/plan/Carried.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/gradient/ColorStops.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::Gradient;
using scene::Paint;
using scene::Point;
using scene::Rect;

namespace {

double lengthOf(const Gradient& gradient) {
    return gradient.kind == Gradient::Kind::radial ? gradient.endRadius
                                                   : distance(gradient.start, gradient.end);
}

/// How often the colours run through within a box on the page.
double periodsIn(const Rect& box, const Gradient& gradient, const Affine& toPage) {
    const Affine toGradient = (toPage * gradient.transform).inverse();
    if (gradient.kind == Gradient::Kind::linear) {
        const Point axis = gradient.end - gradient.start;
        const Affine along{axis.x, axis.y, -axis.y, axis.x, gradient.start.x, gradient.start.y};
        return box.mapped(along.inverse() * toGradient).width;
    }
    const Rect own = box.mapped(toGradient);
    const double x = std::max(gradient.end.x - own.x, own.right() - gradient.end.x);
    const double y = std::max(gradient.end.y - own.y, own.bottom() - gradient.end.y);
    return std::hypot(x, y) / (gradient.endRadius - gradient.startRadius);
}

}  // namespace

bool isSeen(const Affine& toPage) {
    const double length = toPage.largestScale();
    return toPage.isInvertible() && length < kLongestPaint &&
           std::abs(toPage.determinant()) > kThinnestPaint * length;
}

template <class Painted>
void GradientStage::limitPaints(Painted item) {
    if (item.fill.gradient() != nullptr || item.stroke.gradient() != nullptr) {
        const auto box = boxOf(scene::Item(item));
        if (!box || !item.transform.isInvertible())
            return;
        item.fill = limited(item.fill, *box, item.transform);
        item.stroke = limited(item.stroke, *box, item.transform);
        if (!isPainted(item.fill) && !isPainted(item.stroke))
            return;
    }
    pass(std::move(item));
}

Paint GradientStage::limited(const Paint& paint, const Rect& box, const Affine& toPage) {
    const Gradient* gradient = paint.gradient();
    if (gradient == nullptr)
        return paint;
    const double length = lengthOf(*gradient);
    if (!isSeen(toPage * gradient->transform * Affine::scaling(length, length))) {
        warnings_.add("gradients and patterns too small to be seen are left out");
        return {};
    }
    const auto stops = static_cast<double>(gradient->stops->size());
    if (gradient->spread != scene::Spread::pad &&
        !(periodsIn(box, *gradient, toPage) * stops < kMostStops))
        return {averageOf(*gradient->stops).color};
    return paint;
}

void GradientStage::on(scene::Shape shape) {
    limitPaints(std::move(shape));
}

void GradientStage::on(scene::Text text) {
    limitPaints(std::move(text));
}

}  // namespace psrender::plan
