#include "psrender/plan/Crossings.h"

#include <algorithm>
#include <cstdint>

namespace psrender::plan {

namespace {

constexpr std::int64_t kMostPairs = 500'000;
constexpr std::int64_t kMostComparisons = 100'000'000;
constexpr std::size_t kMostEdges = 1'000'000;

struct Box {
    double left, right, top, bottom;
};

std::vector<Box> edgeBoxes(const std::vector<Polyline>& polygons) {
    std::vector<Box> boxes;
    for (const Polyline& polygon : polygons)
        for (std::size_t i = 0; i < polygon.points.size(); ++i) {
            const scene::Point a = polygon.points[i];
            const scene::Point b = polygon.points[(i + 1) % polygon.points.size()];
            boxes.push_back(
                {std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.y, b.y)});
        }
    return boxes;
}

}  // namespace

/// Sweeps from left to right over the edges' boxes. Neighbours on an outline always touch and are
/// part of the count: two to an edge at most.
bool hasTooManyCrossings(const std::vector<Polyline>& polygons) {
    std::vector<Box> boxes = edgeBoxes(polygons);
    if (boxes.size() > kMostEdges)
        return true;
    std::ranges::sort(boxes, {}, &Box::left);
    const std::int64_t most = kMostPairs + 2 * static_cast<std::int64_t>(boxes.size());
    std::int64_t pairs = 0;
    std::int64_t comparisons = 0;
    for (auto box = boxes.begin(); box != boxes.end(); ++box) {
        for (auto other = box + 1; other != boxes.end() && other->left <= box->right; ++other) {
            if (other->top <= box->bottom && box->top <= other->bottom)
                ++pairs;
            if (++comparisons > kMostComparisons)
                return true;
        }
        if (pairs > most)
            return true;
    }
    return false;
}

}  // namespace psrender::plan
