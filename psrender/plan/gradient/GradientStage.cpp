#include "psrender/plan/gradient/GradientStage.h"

#include "psrender/plan/geometry/Box.h"
#include "psrender/plan/geometry/Boxes.h"
#include "psrender/plan/geometry/Seen.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::ColorStop;
using scene::Paint;
using scene::Rect;
using scene::Shape;

namespace {

double lengthOf(const scene::Gradient& gradient) {
    return gradient.kind == scene::Gradient::Kind::radial
               ? gradient.endRadius
               : std::hypot(gradient.end.x - gradient.start.x, gradient.end.y - gradient.start.y);
}

/// How many colours of a native gradient take as many bytes as the tile.
std::size_t colorsWorth(const scene::Pattern* tile) {
    constexpr double bandBytes = 120;
    constexpr double colorBytes = 200;
    if (tile == nullptr)
        return std::numeric_limits<std::size_t>::max();
    return static_cast<std::size_t>(static_cast<double>(tile->content->items.size()) * bandBytes /
                                    colorBytes);
}

auto partsOf(const ColorStop& stop) {
    return std::tuple(stop.position, stop.opacity, stop.color.red, stop.color.green,
                      stop.color.blue);
}

}  // namespace

bool GradientStage::Less::operator()(const ColorStops& a, const ColorStops& b) const {
    return std::ranges::lexicographical_compare(a, b, {}, partsOf, partsOf);
}

void GradientStage::take(scene::Item item) {
    if (auto* shape = std::get_if<Shape>(&item)) {
        takeShape(std::move(*shape));
        return;
    }
    if (const auto* group = std::get_if<scene::BeginGroup>(&item))
        opacity_.push(group->opacity);
    else if (std::holds_alternative<scene::EndGroup>(item))
        opacity_.pop();
    next_.take(std::move(item));
}

void GradientStage::takeShape(Shape shape) {
    const auto isGradient = [](const Paint& paint) { return paint.kind == Paint::Kind::gradient; };
    if (isGradient(shape.fill) || isGradient(shape.stroke)) {
        if (!hasInverse(shape.transform))
            return;
        const Rect page = mappedBox(page_, shape.transform.inverse());
        for (Paint* paint : {&shape.fill, &shape.stroke}) {
            if (!isGradient(*paint))
                continue;
            const auto box = common(paint == &shape.fill ? fillBox(shape) : strokeBox(shape), page);
            *paint = box ? known(*paint, *box, shape.transform) : Paint();
        }
    }
    next_.take(std::move(shape));
}

/// Under an opacity the colours change once more, so that the back end's own gradients are not for
/// it.
Paint GradientStage::known(Paint paint, const Rect& box, const Affine& toPage) {
    scene::Gradient gradient = *paint.gradient;
    const double length = lengthOf(gradient);
    if (!isSeen(toPage * gradient.transform * Affine::scaling(length, length)))
        return leftOut();
    gradient.stops = opaque(*gradient.stops);
    auto tile = tiles_.tileFor(gradient, box, toPage);
    if (paint.opacity * opacity_.current() >= 1)
        if (const auto native = natives_.find(gradient, box, colorsWorth(tile.get()))) {
            paint.gradient = std::make_shared<const scene::Gradient>(*native);
            return paint;
        }
    paint.kind = Paint::Kind::pattern;
    paint.gradient = nullptr;
    paint.pattern = std::move(tile);
    return paint.pattern ? paint : leftOut();
}

Paint GradientStage::leftOut() {
    warnings_.add("gradients and patterns too small to be seen are left out");
    return {};
}

std::shared_ptr<const ColorStops> GradientStage::opaque(const ColorStops& stops) {
    auto& found = opaque_[stops];
    if (!found)
        found = std::make_shared<const ColorStops>(overWhite(stops));
    return found;
}

}  // namespace psrender::plan
