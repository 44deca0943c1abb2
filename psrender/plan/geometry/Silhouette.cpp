#include "psrender/plan/geometry/Silhouette.h"

#include "psrender/plan/geometry/Crossings.h"
#include "psrender/plan/geometry/Dashes.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/geometry/Reach.h"
#include "psrender/plan/geometry/StrokeArea.h"

#include <algorithm>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::Point;
using scene::Rect;
using scene::Shape;

namespace {

/// Thinner lines are drawn as thick as that, in points: an interpreter shows the thinnest line.
constexpr double kThinnest = 0.02;

/// One that stands alone has no length.
std::vector<bool> findNearSteps(const Polyline& line, const Rect& wanted) {
    const std::size_t count = line.points.size();
    const std::size_t steps = std::max<std::size_t>(1, count - (line.closed ? 0 : 1));
    std::vector<bool> isNear;
    for (std::size_t i = 0; i < steps; ++i) {
        const Rect box = Rect::between(line.points[i], line.points[(i + 1) % count]);
        isNear.push_back(box.meets(wanted));
    }
    return isNear;
}

void addNearParts(const Polyline& line, const std::vector<bool>& isNear,
                  std::vector<Polyline>& parts) {
    bool goesOn = false;
    for (std::size_t i = 0; i < isNear.size(); ++i) {
        if (isNear[i] && !goesOn)
            parts.push_back({{line.points[i]}, false});
        goesOn = isNear[i];
        if (goesOn)
            parts.back().points.push_back(line.points[(i + 1) % line.points.size()]);
    }
}

/// The steps of lines that come near `wanted`, as far as they hang together.
std::vector<Polyline> partsNear(const std::vector<Polyline>& lines, const Rect& wanted) {
    std::vector<Polyline> parts;
    for (const Polyline& line : lines) {
        const std::vector<bool> isNear = findNearSteps(line, wanted);
        if (std::ranges::find(isNear, false) == isNear.end())
            parts.push_back(line);
        else
            addNearParts(line, isNear, parts);
    }
    return parts;
}

void map(std::vector<Polyline>& lines, const Affine& map) {
    for (Polyline& line : lines)
        for (Point& p : line.points)
            p = map.apply(p);
}

}  // namespace

std::optional<Polygons> fillArea(const Shape& shape, Budget& budget) {
    const std::size_t chords = countChords(*shape.outline, shape.transform, kCurveTolerance);
    if (chords > kMostEdges || !budget.spend(chords))
        return std::nullopt;
    const auto lines = flatten(*shape.outline, shape.transform, kCurveTolerance);
    return Polygons(areasInReach(lines)).simplified(shape.fillRule, budget);
}

std::optional<Polygons> strokeArea(const Shape& shape, const Rect& wanted, Budget& budget) {
    const double scale = shape.transform.largestScale();
    const double tolerance = kCurveTolerance / scale;
    const std::size_t chords = countChords(*shape.outline, {}, tolerance);
    if (chords > kMostEdges || !budget.spend(chords))
        return std::nullopt;
    scene::StrokeStyle style = shape.strokeStyle;
    style.width = std::max(style.width, kThinnest / scale);
    const Rect near = wanted.mapped(shape.transform.inverse()).grown(reachOf(style));
    const auto lines = partsNear(dashesOf(flatten(*shape.outline, {}, tolerance), style), near);
    auto rings = ringsAround(lines, style, tolerance);
    map(rings, shape.transform);
    return Polygons(areasInReach(rings)).simplified(scene::FillRule::nonZero, budget);
}

}  // namespace psrender::plan
