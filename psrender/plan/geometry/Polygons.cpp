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

/// Grid units a point. Pages reach a million points, and Clipper is fast below 2^30.
constexpr double kGridUnits = 1000;
/// Thinner than this is what rounding leaves, in grid units.
constexpr double kThinnest = 4;
/// Polygons with fewer corners are cut quickly whatever they look like.
constexpr std::size_t kFewCorners = 500;
constexpr std::size_t kFewComparisons = 10;  // a corner, as a guess

IntPoint toGrid(Point p) {
    return {std::llround(p.x * kGridUnits), std::llround(p.y * kGridUnits)};
}

Point fromGrid(IntPoint p) {
    return {static_cast<double>(p.X) / kGridUnits, static_cast<double>(p.Y) / kGridUnits};
}

ClipperLib::Paths laidOnSide(ClipperLib::Paths paths) {
    for (auto& path : paths)
        for (IntPoint& p : path)
            std::swap(p.X, p.Y);
    return paths;
}

std::size_t countIn(const ClipperLib::Paths& paths) {
    std::size_t count = 0;
    for (const auto& path : paths)
        count += path.size();
    return count;
}

SweepChoice sweepFor(const ClipperLib::Paths& subject, const ClipperLib::Paths& other) {
    const std::size_t corners = countIn(subject) + countIn(other);
    if (corners < kFewCorners)
        return {Sweep::downwards, static_cast<std::int64_t>(kFewComparisons * corners)};
    if (corners > kMostEdges)
        return {Sweep::tooLong, 0};
    ClipperLib::Paths all = subject;
    all.insert(all.end(), other.begin(), other.end());
    return chooseSweep(all);
}

std::optional<ClipperLib::Paths> execute(ClipperLib::ClipType how, const ClipperLib::Paths& subject,
                                         scene::FillRule rule, const ClipperLib::Paths& other) {
    try {
        ClipperLib::Clipper clipper;
        const bool hasSubject = clipper.AddPaths(subject, ClipperLib::ptSubject, true);
        const bool hasOther = clipper.AddPaths(other, ClipperLib::ptClip, true);
        const auto fillType =
            rule == scene::FillRule::evenOdd ? ClipperLib::pftEvenOdd : ClipperLib::pftNonZero;
        ClipperLib::Paths result;
        if ((!hasSubject && !hasOther) ||
            clipper.Execute(how, result, fillType, ClipperLib::pftNonZero))
            return result;
    } catch (const ClipperLib::clipperException&) {
    }
    return std::nullopt;
}

double lengthOf(const ClipperLib::Path& path) {
    double length = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const IntPoint& a = path[i];
        const IntPoint& b = path[(i + 1) % path.size()];
        length += std::hypot(static_cast<double>(b.X - a.X), static_cast<double>(b.Y - a.Y));
    }
    return length;
}

/// Whether a line has a part within the box, or may have one.
bool mayMeet(IntPoint a, IntPoint b, IntPoint low, IntPoint high) {
    if (std::max(a.X, b.X) < low.X || std::min(a.X, b.X) > high.X || std::max(a.Y, b.Y) < low.Y ||
        std::min(a.Y, b.Y) > high.Y)
        return false;
    const auto side = [&](ClipperLib::cInt x, ClipperLib::cInt y) {
        const auto area = (b.X - a.X) * (y - a.Y) - (b.Y - a.Y) * (x - a.X);
        return area > 0 ? 1 : area < 0 ? -1 : 0;
    };
    return std::abs(side(low.X, low.Y) + side(low.X, high.Y) + side(high.X, low.Y) +
                    side(high.X, high.Y)) != 4;
}

}  // namespace

Polygons::Polygons(const Rect& box) {
    const IntPoint from = toGrid({box.x, box.y});
    const IntPoint to = toGrid({box.right(), box.bottom()});
    paths_ = {{from, {to.X, from.Y}, to, {from.X, to.Y}}};
}

Polygons::Polygons(const std::vector<Polyline>& lines) {
    for (const Polyline& line : lines)
        std::ranges::transform(line.points, std::back_inserter(paths_.emplace_back()), toGrid);
}

void Polygons::append(const Polygons& other) {
    paths_.insert(paths_.end(), other.paths_.begin(), other.paths_.end());
}

std::optional<Polygons> Polygons::combined(ClipperLib::ClipType how, scene::FillRule rule,
                                           const Polygons& other, Budget& budget) const {
    const auto [sweep, comparisons] = sweepFor(paths_, other.paths_);
    if (sweep == Sweep::tooLong || !budget.spend(static_cast<std::size_t>(comparisons)))
        return std::nullopt;
    const bool isSideways = sweep == Sweep::sideways;
    auto result = isSideways ? execute(how, laidOnSide(paths_), rule, laidOnSide(other.paths_))
                             : execute(how, paths_, rule, other.paths_);
    if (!result)
        return std::nullopt;
    return Polygons(isSideways ? laidOnSide(std::move(*result)) : std::move(*result));
}

std::optional<Polygons> Polygons::simplified(scene::FillRule rule, Budget& budget) const {
    return combined(ClipperLib::ctUnion, rule, {}, budget);
}

std::optional<Polygons> Polygons::common(const Polygons& other, Budget& budget) const {
    return combined(ClipperLib::ctIntersection, scene::FillRule::nonZero, other, budget);
}

std::optional<Polygons> Polygons::without(const Polygons& other, Budget& budget) const {
    return combined(ClipperLib::ctDifference, scene::FillRule::nonZero, other, budget);
}

void Polygons::removeSlivers() {
    std::erase_if(paths_, [](const ClipperLib::Path& path) {
        return std::abs(ClipperLib::Area(path)) < kThinnest * lengthOf(path) / 2;
    });
}

std::size_t Polygons::countCorners() const {
    return countIn(paths_);
}

std::optional<Rect> Polygons::box() const {
    std::optional<Rect> box;
    for (const auto& path : paths_)
        for (const IntPoint& p : path)
            box = around(box, Rect::between(fromGrid(p), fromGrid(p)));
    return box;
}

double Polygons::area() const {
    double area = 0;
    for (const auto& path : paths_)
        area += ClipperLib::Area(path);
    return std::abs(area);
}

double Polygons::borderLength() const {
    double length = 0;
    for (const auto& path : paths_)
        length += lengthOf(path);
    return length;
}

bool Polygons::isAllOf(const Polygons& whole) const {
    return whole.area() - area() < kThinnest * whole.borderLength() / 2;
}

/// Holes are inside of outer borders, so every border that is crossed changes sides.
bool Polygons::contains(Point p) const {
    const IntPoint spot = toGrid(p);
    const auto isInside = [spot](const auto& path) {
        return ClipperLib::PointInPolygon(spot, path) != 0;
    };
    return std::ranges::count_if(paths_, isInside) % 2 == 1;
}

bool Polygons::hasBorderIn(const Rect& box) const {
    const IntPoint low = toGrid({box.x, box.y});
    const IntPoint high = toGrid({box.right(), box.bottom()});
    for (const auto& path : paths_)
        for (std::size_t i = 0; i < path.size(); ++i)
            if (mayMeet(path[i], path[(i + 1) % path.size()], low, high))
                return true;
    return false;
}

scene::Outline Polygons::outline(const scene::Affine& fromPage) const {
    scene::Outline outline;
    for (const auto& path : paths_) {
        if (path.empty())
            continue;
        outline.moveTo(fromPage.apply(fromGrid(path.front())));
        for (std::size_t i = 1; i < path.size(); ++i)
            outline.lineTo(fromPage.apply(fromGrid(path[i])));
        outline.close();
    }
    return outline;
}

}  // namespace psrender::plan
