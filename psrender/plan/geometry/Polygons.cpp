#include "psrender/plan/geometry/Polygons.h"

#include "psrender/plan/geometry/Crossings.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

namespace {

using ClipperLib::IntPoint;
using scene::Point;
using scene::Rect;

/// Polygons with fewer corners are cut quickly whatever they look like.
constexpr std::size_t kFewCorners = 500;
constexpr std::size_t kFewComparisons = 10;  // a corner, as a guess

IntPoint toGrid(double x, double y) {
    return {std::llround(x * kGridUnits), std::llround(y * kGridUnits)};
}

Point fromGrid(IntPoint p) {
    return {static_cast<double>(p.X) / kGridUnits, static_cast<double>(p.Y) / kGridUnits};
}

void layOnSide(Polygons& polygons) {
    for (auto& polygon : polygons)
        for (IntPoint& p : polygon)
            std::swap(p.X, p.Y);
}

SweepChoice sweepFor(const Polygons& subject, const Polygons& other) {
    const std::size_t corners = countCorners(subject) + countCorners(other);
    if (corners < kFewCorners)
        return {Sweep::downwards, static_cast<std::int64_t>(kFewComparisons * corners)};
    if (corners > kMostEdges)
        return {Sweep::tooLong, 0};
    Polygons all = subject;
    all.insert(all.end(), other.begin(), other.end());
    return chooseSweep(all);
}

std::optional<Polygons> execute(ClipperLib::ClipType how, const Polygons& subject,
                                PolyFillType rule, const Polygons& other) {
    try {
        ClipperLib::Clipper clipper;
        const bool hasSubject = clipper.AddPaths(subject, ClipperLib::ptSubject, true);
        const bool hasOther = clipper.AddPaths(other, ClipperLib::ptClip, true);
        Polygons result;
        if ((!hasSubject && !hasOther) ||
            clipper.Execute(how, result, rule, ClipperLib::pftNonZero))
            return result;
    } catch (const ClipperLib::clipperException&) {
    }
    return std::nullopt;
}

}  // namespace

Polygons toPolygons(const std::vector<Polyline>& lines) {
    Polygons polygons;
    for (const Polyline& line : lines) {
        auto& polygon = polygons.emplace_back();
        for (const Point& p : line.points)
            polygon.push_back(toGrid(p.x, p.y));
    }
    return polygons;
}

Polygons toPolygons(const Rect& box) {
    const IntPoint from = toGrid(box.x, box.y);
    const IntPoint to = toGrid(box.x + box.width, box.y + box.height);
    return {{from, {to.X, from.Y}, to, {from.X, to.Y}}};
}

scene::Outline outlineOf(const Polygons& polygons, const scene::Affine& fromPage) {
    scene::Outline outline;
    for (const auto& polygon : polygons) {
        if (polygon.empty())
            continue;
        outline.moveTo(fromPage.apply(fromGrid(polygon.front())));
        for (std::size_t i = 1; i < polygon.size(); ++i)
            outline.lineTo(fromPage.apply(fromGrid(polygon[i])));
        outline.close();
    }
    return outline;
}

std::optional<Rect> boxOf(const Polygons& polygons) {
    std::optional<std::pair<IntPoint, IntPoint>> range;
    for (const auto& polygon : polygons)
        for (const IntPoint& p : polygon) {
            auto& [low, high] = range ? *range : range.emplace(p, p);
            low = {std::min(low.X, p.X), std::min(low.Y, p.Y)};
            high = {std::max(high.X, p.X), std::max(high.Y, p.Y)};
        }
    if (!range)
        return std::nullopt;
    const Point from = fromGrid(range->first);
    const Point to = fromGrid(range->second);
    return Rect{from.x, from.y, to.x - from.x, to.y - from.y};
}

std::size_t countCorners(const Polygons& polygons) {
    std::size_t count = 0;
    for (const auto& polygon : polygons)
        count += polygon.size();
    return count;
}

std::optional<Polygons> combine(ClipperLib::ClipType how, Polygons subject, PolyFillType rule,
                                Polygons other, std::size_t* work) {
    const auto [sweep, comparisons] = sweepFor(subject, other);
    if (work != nullptr)
        *work += static_cast<std::size_t>(comparisons);
    if (sweep == Sweep::tooLong)
        return std::nullopt;
    if (sweep == Sweep::downwards)
        return execute(how, subject, rule, other);
    layOnSide(subject);
    layOnSide(other);
    auto result = execute(how, subject, rule, other);
    if (result)
        layOnSide(*result);
    return result;
}

std::optional<Polygons> simplify(Polygons polygons, PolyFillType rule) {
    return combine(ClipperLib::ctUnion, std::move(polygons), rule, {});
}

}  // namespace psrender::plan
