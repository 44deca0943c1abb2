#include "psrender/plan/gradient/Cone.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <type_traits>
#include <variant>

namespace psrender::plan {

using scene::Gradient;
using scene::Paint;

namespace {

template <class Painted>
constexpr bool hasPaints =
    std::is_same_v<Painted, scene::Shape> || std::is_same_v<Painted, scene::Text>;

bool isPaintedSo(const Paint& paint) {
    return paint.gradient() != nullptr && isCone(*paint.gradient());
}

Gradient straightened(Gradient cone) {
    constexpr double kClosest = 0.995;  // to the outer circle
    cone.startRadius = std::min(cone.startRadius, cone.endRadius * kClosest);
    const double farthest = (cone.endRadius - cone.startRadius) * kClosest;
    const scene::Point out = cone.start - cone.end;
    const double length = std::hypot(out.x, out.y);
    const double share = length > farthest ? farthest / length : 1;
    cone.start = {cone.end.x + out.x * share, cone.end.y + out.y * share};
    return cone;
}

void straighten(Paint& paint) {
    if (isPaintedSo(paint))
        paint.source = std::make_shared<const Gradient>(straightened(*paint.gradient()));
}

}  // namespace

bool isCone(const Gradient& gradient) {
    return gradient.kind == Gradient::Kind::radial &&
           distance(gradient.start, gradient.end) + gradient.startRadius > gradient.endRadius;
}

bool hasCone(const scene::Item& item) {
    return std::visit(
        []<class Kind>(const Kind& it) {
            if constexpr (hasPaints<Kind>)
                return isPaintedSo(it.fill) || isPaintedSo(it.stroke);
            else
                return false;
        },
        item);
}

void straighten(scene::Item& item) {
    std::visit(
        []<class Kind>(Kind& it) {
            if constexpr (hasPaints<Kind>) {
                straighten(it.fill);
                straighten(it.stroke);
            }
        },
        item);
}

}  // namespace psrender::plan
