// Even-odd interiors in non-zero terms.
//
// Where a point lies inside by the even-odd rule it is crossed an odd number of times, so its
// winding number is odd and not zero: the even-odd interior is always part of the non-zero one,
// however the subpaths are turned. So two interiors of equal area are equal, and a guess at the
// turns is proven right by comparing two areas.

#include "psrender/plan/geometry/FillRule.h"

#include "psrender/plan/geometry/Crossings.h"
#include "psrender/plan/geometry/Polyline.h"

#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Paths;
using scene::Affine;
using scene::Outline;
using scene::Point;

constexpr double kTolerance = 0.01;  // points
/// Integer units a point. Pages reach a million points, and Clipper is fast below 2^30.
constexpr double kUnits = 1000;
/// Points times subpaths up to which subpaths are turned: about a second.
constexpr std::size_t kMostPointTests = 500'000'000;

Paths toPaths(const std::vector<Polyline>& lines) {
    Paths paths;
    for (const Polyline& line : lines) {
        auto& path = paths.emplace_back();
        for (const Point& p : line.points)
            path.emplace_back(std::llround(p.x * kUnits), std::llround(p.y * kUnits));
    }
    return paths;
}

/// Clipper sweeps downwards; for a sweep sideways the polygons lie on their side.
void layOnSide(Paths& paths) {
    for (auto& path : paths)
        for (IntPoint& p : path)
            std::swap(p.X, p.Y);
}

/// Nothing if Clipper gives up.
std::optional<Paths> interior(const Paths& paths, ClipperLib::PolyFillType rule) {
    try {
        ClipperLib::Clipper clipper;
        clipper.AddPaths(paths, ClipperLib::ptSubject, true);
        Paths result;
        if (clipper.Execute(ClipperLib::ctUnion, result, rule, rule))
            return result;
    } catch (const ClipperLib::clipperException&) {
    }
    return std::nullopt;
}

/// Holes count negative.
double areaOf(const Paths& paths) {
    double area = 0;
    for (const auto& path : paths)
        area += ClipperLib::Area(path);
    return area;
}

/// Equal but for the order of summing up. Polygons that do not cross keep their vertices, so a
/// hole of a few units makes a difference; a doubt costs no more than the curves.
bool isSameArea(double a, double b) {
    constexpr double kRoundingError = 1e-11;
    return std::abs(a - b) <= 1 + kRoundingError * std::max(std::abs(a), std::abs(b));
}

bool isRight(const Paths& candidate, double area) {
    const auto nonZero = interior(candidate, ClipperLib::pftNonZero);
    return nonZero && isSameArea(area, areaOf(*nonZero));
}

std::size_t countPoints(const Paths& paths) {
    std::size_t count = 0;
    for (const auto& path : paths)
        count += path.size();
    return count;
}

/// In how many of the others the path's first point lies.
int depthOf(std::size_t index, const Paths& paths) {
    int depth = 0;
    for (std::size_t i = 0; i < paths.size(); ++i)
        if (i != index && !paths[index].empty() &&
            ClipperLib::PointInPolygon(paths[index].front(), paths[i]) == 1)
            ++depth;
    return depth;
}

/// Which paths must be turned round so that outer ones run one way and holes the other.
std::vector<bool> turnsByDepth(const Paths& paths) {
    std::vector<bool> turns;
    for (std::size_t i = 0; i < paths.size(); ++i)
        turns.push_back(ClipperLib::Orientation(paths[i]) == (depthOf(i, paths) % 2 == 1));
    return turns;
}

Paths turned(Paths paths, const std::vector<bool>& turns) {
    for (std::size_t i = 0; i < paths.size(); ++i)
        if (turns[i])
            ClipperLib::ReversePath(paths[i]);
    return paths;
}

/// One subpath of an outline, ready to be written in either direction.
struct Subpath {
    Point start;
    struct Step {
        Point c1, c2, end;
        bool curved;
    };
    std::vector<Step> steps;

    void append(Outline& out, bool reverse) const {
        out.moveTo(reverse && !steps.empty() ? steps.back().end : start);
        for (std::size_t i = 0; i < steps.size(); ++i)
            reverse ? appendBackwards(out, steps.size() - 1 - i) : appendStep(out, steps[i]);
        out.close();
    }

private:
    static void appendStep(Outline& out, const Step& step) {
        if (step.curved)
            out.cubicTo(step.c1, step.c2, step.end);
        else
            out.lineTo(step.end);
    }
    void appendBackwards(Outline& out, std::size_t index) const {
        const Step& step = steps[index];
        appendStep(out, {step.c2, step.c1, index == 0 ? start : steps[index - 1].end, step.curved});
    }
};

class SubpathCollector {
public:
    void move(Point p) {
        subpaths.push_back({p, {}});
        closed_ = false;
    }
    void line(Point from, Point to) { open(from).steps.push_back({{}, {}, to, false}); }
    void cubic(Point from, Point c1, Point c2, Point to) {
        open(from).steps.push_back({c1, c2, to, true});
    }
    void close(Point /*from*/, Point /*start*/) { closed_ = true; }

    std::vector<Subpath> subpaths;

private:
    Subpath& open(Point from) {
        if (subpaths.empty() || closed_)
            move(from);
        return subpaths.back();
    }
    bool closed_ = false;
};

Outline turnedOutline(const Outline& outline, const std::vector<bool>& turns) {
    SubpathCollector collector;
    visit(outline, collector);
    Outline result;
    for (std::size_t i = 0; i < collector.subpaths.size(); ++i)
        collector.subpaths[i].append(result, i < turns.size() && turns[i]);
    return result;
}

Outline polygonOutline(const Paths& paths, const Affine& fromPage) {
    Outline outline;
    for (const auto& path : paths) {
        for (std::size_t i = 0; i < path.size(); ++i) {
            const Point p = fromPage.apply(
                {static_cast<double>(path[i].X) / kUnits, static_cast<double>(path[i].Y) / kUnits});
            i == 0 ? outline.moveTo(p) : outline.lineTo(p);
        }
        outline.close();
    }
    return outline;
}

std::nullopt_t giveUp(Warnings& warnings) {
    warnings.add("an even-odd fill with too many crossings is filled by the non-zero rule");
    return std::nullopt;
}

}  // namespace

std::optional<Outline> nonZeroOutline(const Outline& outline, const Affine& toPage,
                                      Warnings& warnings) {
    if (countChords(outline, toPage, kTolerance) > kMostEdges)
        return giveUp(warnings);
    Paths paths = toPaths(flatten(outline, toPage, kTolerance));
    const Sweep sweep = chooseSweep(paths).sweep;
    if (sweep == Sweep::tooLong)
        return giveUp(warnings);
    if (sweep == Sweep::sideways)
        layOnSide(paths);
    auto evenOdd = interior(paths, ClipperLib::pftEvenOdd);
    if (!evenOdd)
        return giveUp(warnings);
    const double area = areaOf(*evenOdd);
    if (isRight(paths, area))
        return std::nullopt;
    if (paths.size() * countPoints(paths) < kMostPointTests) {
        const std::vector<bool> turns = turnsByDepth(paths);
        if (isRight(turned(paths, turns), area))
            return turnedOutline(outline, turns);
    }
    if (sweep == Sweep::sideways)
        layOnSide(*evenOdd);
    return polygonOutline(*evenOdd, toPage.inverse());
}

}  // namespace psrender::plan
