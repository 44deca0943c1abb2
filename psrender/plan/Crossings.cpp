#include "psrender/plan/Crossings.h"

#include <algorithm>
#include <cstdint>

namespace psrender::plan {

namespace {

constexpr std::int64_t kMostPairs = 500'000;
constexpr std::int64_t kMostComparisons = 50'000'000;

struct Interval {
    double low, high;

    [[nodiscard]] bool meets(const Interval& other) const {
        return low <= other.high && other.low <= high;
    }
};

/// The box of one edge: its extent along the sweep and across it.
struct Box {
    Interval along, across;
};

Interval between(double a, double b) {
    return {std::min(a, b), std::max(a, b)};
}

std::vector<Box> edgeBoxes(const std::vector<Polyline>& polygons, Sweep sweep) {
    std::vector<Box> boxes;
    for (const Polyline& polygon : polygons)
        for (std::size_t i = 0; i < polygon.points.size(); ++i) {
            const scene::Point a = polygon.points[i];
            const scene::Point b = polygon.points[(i + 1) % polygon.points.size()];
            boxes.push_back({between(a.y, b.y), between(a.x, b.x)});
            if (sweep == Sweep::sideways)
                std::swap(boxes.back().along, boxes.back().across);
        }
    return boxes;
}

/// How many pairs of edges are on the sweep's line together. Each edge meets those that began
/// before it and have not ended.
std::int64_t comparisons(const std::vector<Box>& boxes) {
    std::vector<double> lows;
    std::vector<double> highs;
    for (const Box& box : boxes) {
        lows.push_back(box.along.low);
        highs.push_back(box.along.high);
    }
    std::ranges::sort(lows);
    std::ranges::sort(highs);
    std::int64_t count = 0;
    auto ended = highs.begin();
    for (auto low = lows.begin(); low != lows.end(); ++low) {
        while (*ended < *low)
            ++ended;
        count += (low - lows.begin()) - (ended - highs.begin());
    }
    return count;
}

/// Neighbours on an outline always touch and are part of the count: two to an edge at most.
bool hasTooManyCrossings(std::vector<Box> boxes) {
    std::ranges::sort(boxes, {}, [](const Box& box) { return box.along.low; });
    const std::int64_t most = kMostPairs + 2 * static_cast<std::int64_t>(boxes.size());
    std::int64_t pairs = 0;
    for (auto box = boxes.begin(); box != boxes.end() && pairs <= most; ++box)
        for (auto other = box + 1; other != boxes.end() && other->along.low <= box->along.high;
             ++other)
            pairs += box->across.meets(other->across) ? 1 : 0;
    return pairs > most;
}

}  // namespace

Sweep chooseSweep(const std::vector<Polyline>& polygons) {
    const std::vector<Box> down = edgeBoxes(polygons, Sweep::downwards);
    const std::vector<Box> side = edgeBoxes(polygons, Sweep::sideways);
    if (down.size() > kMostEdges)
        return Sweep::tooLong;
    const auto downComparisons = comparisons(down);
    const auto sideComparisons = comparisons(side);
    if (std::min(downComparisons, sideComparisons) > kMostComparisons)
        return Sweep::tooLong;
    const bool isDown = downComparisons <= sideComparisons;
    if (hasTooManyCrossings(isDown ? down : side))
        return Sweep::tooLong;
    return isDown ? Sweep::downwards : Sweep::sideways;
}

}  // namespace psrender::plan
