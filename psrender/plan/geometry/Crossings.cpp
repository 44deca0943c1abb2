#include "psrender/plan/geometry/Crossings.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace psrender::plan {

namespace {

using ClipperLib::IntPoint;

constexpr std::int64_t kMostComparisons = 50'000'000;
constexpr std::int64_t kMostPairs = 500'000;
/// Each pair of edges on one line makes Clipper walk around a polygon once: pairs times edges.
constexpr std::int64_t kMostJoining = 100'000'000;

struct Edge {
    IntPoint from, to;
    std::int64_t index;  ///< neighbours on a polygon have neighbouring ones, but for the last

    [[nodiscard]] auto left() const { return std::min(from.X, to.X); }
    [[nodiscard]] auto right() const { return std::max(from.X, to.X); }
    [[nodiscard]] auto top() const { return std::min(from.Y, to.Y); }
    [[nodiscard]] auto bottom() const { return std::max(from.Y, to.Y); }

    /// Twice the area between this edge and `p`: 0 if it lies on the same line.
    [[nodiscard]] auto areaTo(IntPoint p) const {
        return (to.X - from.X) * (p.Y - from.Y) - (to.Y - from.Y) * (p.X - from.X);
    }
};

IntPoint onItsSide(IntPoint p) {
    return {p.Y, p.X};
}

std::vector<Edge> edgesOf(const ClipperLib::Paths& polygons, Sweep sweep) {
    std::vector<Edge> edges;
    for (const auto& polygon : polygons)
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            Edge edge{polygon[i], polygon[(i + 1) % polygon.size()],
                      static_cast<std::int64_t>(edges.size())};
            if (sweep == Sweep::sideways)
                edge = {onItsSide(edge.from), onItsSide(edge.to), edge.index};
            edges.push_back(edge);
        }
    std::ranges::sort(edges, {}, &Edge::top);
    return edges;
}

/// How many pairs of edges are on the sweep's line together. Each edge meets those that began
/// before it and have not ended.
std::int64_t comparisons(const std::vector<Edge>& edges) {
    std::vector<ClipperLib::cInt> ends;
    ends.reserve(edges.size());
    for (const Edge& edge : edges)
        ends.push_back(edge.bottom());
    std::ranges::sort(ends);
    std::int64_t count = 0;
    std::int64_t begun = 0;
    std::int64_t ended = 0;
    for (const Edge& edge : edges) {
        while (ends[static_cast<std::size_t>(ended)] < edge.top())
            ++ended;
        count += begun++ - ended;
    }
    return count;
}

/// Whether no pair of edges need be looked at to know that there are not too many.
bool isEasy(const std::vector<Edge>& edges, std::int64_t comparisons) {
    return comparisons <= kMostPairs &&
           comparisons * static_cast<std::int64_t>(edges.size()) <= kMostJoining;
}

bool hasTooManyCrossings(const std::vector<Edge>& edges) {
    std::int64_t close = 0;
    std::int64_t onOneLine = 0;
    for (auto edge = edges.begin(); edge != edges.end() && close <= kMostPairs; ++edge)
        for (auto other = edge + 1; other != edges.end() && other->top() <= edge->bottom();
             ++other) {
            if (other->left() > edge->right() || edge->left() > other->right() ||
                std::abs(edge->index - other->index) == 1)
                continue;
            ++close;
            if (edge->areaTo(other->from) == 0 && edge->areaTo(other->to) == 0)
                ++onOneLine;
        }
    const auto count = static_cast<std::int64_t>(edges.size());
    return close > kMostPairs || onOneLine * count > kMostJoining;
}

}  // namespace

SweepChoice chooseSweep(const ClipperLib::Paths& polygons) {
    const std::vector<Edge> down = edgesOf(polygons, Sweep::downwards);
    const auto downComparisons = comparisons(down);
    if (isEasy(down, downComparisons))
        return {Sweep::downwards, downComparisons};
    const std::vector<Edge> side = edgesOf(polygons, Sweep::sideways);
    const auto sideComparisons = comparisons(side);
    const bool isDown = downComparisons <= sideComparisons;
    const auto fewer = std::min(downComparisons, sideComparisons);
    if (fewer > kMostComparisons || hasTooManyCrossings(isDown ? down : side))
        return {Sweep::tooLong, fewer};
    return {isDown ? Sweep::downwards : Sweep::sideways, fewer};
}

}  // namespace psrender::plan
