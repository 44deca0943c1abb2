#include "psrender/plan/geometry/Reach.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace psrender::plan {

namespace {

using scene::Point;

/// One edge of the square within reach, told by the axis across it.
struct Edge {
    double Point::*axis;
    double side;  ///< 1 or -1

    /// How far `p` is inside.
    [[nodiscard]] double depth(Point p) const { return kReach - side * (p.*axis); }
};

constexpr std::array kEdges{Edge{&Point::x, 1}, Edge{&Point::x, -1}, Edge{&Point::y, 1},
                            Edge{&Point::y, -1}};

/// Sutherland and Hodgman's step for one edge.
std::vector<Point> cutArea(const std::vector<Point>& points, const Edge& edge) {
    std::vector<Point> result;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point a = points[i];
        const Point b = points[(i + 1) % points.size()];
        const double from = edge.depth(a);
        const double to = edge.depth(b);
        if (from >= 0)
            result.push_back(a);
        if ((from >= 0) != (to >= 0))
            result.push_back(lerp(a, b, from / (from - to)));
    }
    return result;
}

/// The part of a line between two points that is within reach.
std::optional<std::pair<Point, Point>> cutLine(Point a, Point b) {
    double first = 0;
    double last = 1;
    for (const Edge& edge : kEdges) {
        const double from = edge.depth(a);
        const double to = edge.depth(b);
        if (from < 0 && to < 0)
            return std::nullopt;
        if (from < 0)
            first = std::max(first, from / (from - to));
        if (to < 0)
            last = std::min(last, from / (from - to));
    }
    if (first > last)
        return std::nullopt;
    return std::pair{first > 0 ? lerp(a, b, first) : a, last < 1 ? lerp(a, b, last) : b};
}

bool isWithin(const Polyline& line) {
    return std::ranges::all_of(line.points, [](Point p) {
        return std::ranges::all_of(kEdges, [p](const Edge& edge) { return edge.depth(p) >= 0; });
    });
}

void appendPieces(const Polyline& line, std::vector<Polyline>& pieces) {
    bool goesOn = false;
    const std::size_t count = line.points.size() - (line.closed ? 0 : 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Point end = line.points[(i + 1) % line.points.size()];
        const auto part = cutLine(line.points[i], end);
        if (part && !goesOn)
            pieces.push_back({{part->first}, false});
        if (part)
            pieces.back().points.push_back(part->second);
        goesOn = part && part->second == end;
    }
}

}  // namespace

std::vector<Polyline> areasInReach(const std::vector<Polyline>& areas) {
    std::vector<Polyline> result;
    for (const Polyline& area : areas) {
        std::vector<Point> points = area.points;
        for (const Edge& edge : kEdges)
            points = cutArea(points, edge);
        if (!points.empty())
            result.push_back({std::move(points), true});
    }
    return result;
}

std::vector<Polyline> linesInReach(const std::vector<Polyline>& lines) {
    std::vector<Polyline> result;
    for (const Polyline& line : lines)
        if (isWithin(line))
            result.push_back(line);
        else
            appendPieces(line, result);
    return result;
}

}  // namespace psrender::plan
