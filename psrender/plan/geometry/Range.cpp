#include "psrender/plan/geometry/Range.h"

#include "psrender/plan/geometry/Crossings.h"
#include "psrender/plan/geometry/Reach.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace psrender::plan {

namespace {

using scene::Affine;
using scene::Outline;
using scene::Point;
using scene::Shape;

constexpr double kTolerance = 0.001;      // points
constexpr double kCurveTolerance = 0.01;  // points

bool isWritable(double value) {
    return std::abs(value) < kLargestNumber;
}

bool isWritable(const Shape& shape) {
    const Affine& m = shape.transform;
    const auto isNumber = [](double value) { return isWritable(value); };
    const auto isPoint = [](Point p) { return isWritable(p.x) && isWritable(p.y); };
    const auto& style = shape.strokeStyle;
    return std::ranges::all_of(
               std::initializer_list<double>{m.a, m.b, m.c, m.d, m.e, m.f, style.width,
                                             style.miterLimit, style.dashOffset},
               isNumber) &&
           std::ranges::all_of(style.dashes, isNumber) &&
           std::ranges::all_of(shape.outline->points(), isPoint);
}

double farthest(const scene::Rect& box) {
    return std::max(
        {std::abs(box.x), std::abs(box.y), std::abs(box.right()), std::abs(box.bottom())});
}

Shape besideOrigin(Shape shape) {
    const auto box = shape.outline->controlBox();
    if (farthest(*box) * kFloatPrecision * shape.transform.meanScale() <= kTolerance)
        return shape;
    const Point centre = box->centre();
    const Affine toOrigin = Affine::translation(-centre.x, -centre.y);
    shape.outline = std::make_shared<Outline>(shape.outline->transformed(toOrigin));
    shape.fill = moved(shape.fill, toOrigin);
    shape.stroke = moved(shape.stroke, toOrigin);
    shape.transform = shape.transform * Affine::translation(centre.x, centre.y);
    return shape;
}

/// Only the fill of `shape`, or only its stroke, with another outline.
Shape part(const Shape& shape, bool isFill, const std::vector<Polyline>& onPage) {
    Shape result = isFill ? shape.onlyFill() : shape.onlyStroke();
    result.outline =
        std::make_shared<Outline>(toOutline(onPage).transformed(shape.transform.inverse()));
    return result;
}

std::vector<Shape> cut(const Shape& shape) {
    const auto lines = flatten(*shape.outline, shape.transform, kCurveTolerance);
    std::vector<Shape> parts;
    for (const bool isFill : {true, false}) {
        const auto cutLines = isFill ? areasInReach(lines) : linesInReach(lines);
        if (isPainted(isFill ? shape.fill : shape.stroke) && !cutLines.empty())
            parts.push_back(besideOrigin(part(shape, isFill, cutLines)));
    }
    return parts;
}

std::vector<Shape> leaveOut(Warnings& warnings) {
    warnings.add("a shape with numbers beyond all bounds is left out");
    return {};
}

}  // namespace

std::vector<Shape> bringInRange(const Shape& shape, Warnings& warnings) {
    if (shape.outline->points().empty() || shape.transform.determinant() == 0)
        return {};
    if (!isWritable(shape))
        return leaveOut(warnings);
    if (farthest(shape.outline->controlBox()->mapped(shape.transform)) <= kReach ||
        farthest(*shape.outline->transformed(shape.transform).controlBox()) <= kReach)
        return {besideOrigin(shape)};
    if (countChords(*shape.outline, shape.transform, kCurveTolerance) > kMostEdges)
        return leaveOut(warnings);
    return cut(shape);
}

}  // namespace psrender::plan
