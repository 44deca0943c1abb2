#include "psrender/svg/paint/ShapePaints.h"

#include "psrender/svg/paint/PaintResolver.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace psrender::svg {

using scene::StrokeStyle;

namespace {

/// An odd list stands for the list twice over, and one of zeros for a solid line.
std::vector<double> resolveDashes(const DashList& list, const Measures& measures) {
    std::vector<double> dashes;
    if (!list)
        return dashes;
    const std::size_t rounds = list->size() % 2 == 0 ? 1 : 2;
    dashes.reserve(list->size() * rounds);
    for (std::size_t i = 0; i < rounds; ++i)
        for (const Length& length : *list)
            dashes.push_back(length.resolve(measures, Axis::other));
    if (std::all_of(dashes.begin(), dashes.end(), [](double dash) { return dash == 0; }))
        dashes.clear();
    return dashes;
}

/// The same place in the pattern, counted from its beginning.
double withinPattern(double offset, const std::vector<double>& dashes) {
    const double total = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    if (total <= 0)
        return 0;
    const double rest = std::fmod(offset, total);
    return rest < 0 ? rest + total : rest;
}

StrokeStyle resolveStroke(const ComputedStyle& style, const Measures& measures) {
    StrokeStyle stroke;
    stroke.width = style.strokeWidth.resolve(measures, Axis::other);
    stroke.cap = style.cap;
    stroke.join = style.join;
    stroke.miterLimit = style.miterLimit;
    stroke.dashes = resolveDashes(style.dashes, measures);
    stroke.dashOffset =
        withinPattern(style.dashOffset.resolve(measures, Axis::other), stroke.dashes);
    return stroke;
}

}  // namespace

scene::Shape ShapePaints::resolve(const ComputedStyle& style, const PaintPlace& place) {
    scene::Shape shape;
    shape.fill = paints_.resolve(style.fill, style.fillOpacity, style.color, place);
    shape.fillRule = style.fillRule;
    if (style.strokeWidth.value > 0)
        shape.stroke = paints_.resolve(style.stroke, style.strokeOpacity, style.color, place);
    if (isPainted(shape.stroke))
        shape.strokeStyle = resolveStroke(style, place.measures);
    return shape;
}

}  // namespace psrender::svg
