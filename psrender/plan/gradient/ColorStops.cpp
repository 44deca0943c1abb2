#include "psrender/plan/gradient/ColorStops.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace psrender::plan {

using scene::ColorStop;

namespace {

constexpr int kBendSteps = 8;  // stays within one of 256 levels
/// Levels by which the middle of a bent run is off the straight one before it is worth a stop.
constexpr double kStraight = 1;

/// A single stop is the same everywhere.
std::vector<double> positionsOf(const ColorStops& above, const ColorStops& below) {
    std::vector<double> positions;
    for (const ColorStops* stops : {&above, &below})
        for (const ColorStop& stop : *stops)
            if (stops->size() > 1)
                positions.push_back(stop.position);
    if (positions.empty())
        positions.push_back(above.front().position);
    std::ranges::sort(positions);
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

/// Two runs of colours on top of each other.
class Pair {
public:
    Pair(const ColorStops& above, const ColorStops& below) : above_(above), below_(below) {}

    ColorStops stacked() {
        const std::vector<double> positions = positionsOf(above_, below_);
        for (std::size_t i = 0; i < positions.size(); ++i) {
            if (i > 0)
                addBend(positions[i - 1], positions[i]);
            const ColorStop before = at(positions[i], Side::before);
            const ColorStop behind = at(positions[i], Side::behind);
            result_.push_back(before);
            if (behind != before)
                result_.push_back(behind);
        }
        return std::move(result_);
    }

private:
    [[nodiscard]] ColorStop at(double position, Side side) const {
        const ColorStop upper = stopAt(above_, position, side);
        const ColorStop lower = stopAt(below_, position, side);
        const Tint tint = over({upper.color, upper.opacity}, {lower.color, lower.opacity});
        return {position, tint.color, tint.alpha};
    }
    void addBend(double from, double to) {
        const ColorStop straight = between(at(from, Side::behind), at(to, Side::before), 0.5);
        if (isNear(straight, at(straight.position, Side::behind)))
            return;
        for (int step = 1; step < kBendSteps; ++step)
            result_.push_back(at(std::lerp(from, to, double{1} * step / kBendSteps), Side::behind));
    }
    static bool isNear(const ColorStop& a, const ColorStop& b) {
        const auto differ = [](double x, double y) { return std::abs(x - y) > kStraight; };
        constexpr double levels = 255;
        return !differ(a.color.red, b.color.red) && !differ(a.color.green, b.color.green) &&
               !differ(a.color.blue, b.color.blue) &&
               !differ(a.opacity * levels, b.opacity * levels);
    }

    const ColorStops& above_;
    const ColorStops& below_;
    ColorStops result_;
};

}  // namespace

ColorStop between(const ColorStop& a, const ColorStop& b, double share) {
    return {std::lerp(a.position, b.position, share), scene::Color::mixed(a.color, b.color, share),
            std::lerp(a.opacity, b.opacity, share)};
}

ColorStop stopAt(const ColorStops& stops, double position, Side side) {
    const auto next = side == Side::before
                          ? std::ranges::lower_bound(stops, position, {}, &ColorStop::position)
                          : std::ranges::upper_bound(stops, position, {}, &ColorStop::position);
    if (next == stops.begin() || next == stops.end()) {
        ColorStop end = next == stops.end() ? stops.back() : stops.front();
        end.position = position;
        return end;
    }
    const ColorStop& last = *std::prev(next);
    return between(last, *next, (position - last.position) / (next->position - last.position));
}

ColorStops over(const ColorStops& above, const ColorStops& below) {
    return Pair(above, below).stacked();
}

bool isOpaque(const ColorStops& stops) {
    return std::ranges::all_of(stops, [](const ColorStop& stop) { return stop.opacity >= 1; });
}

ColorStop averageOf(const ColorStops& stops) {
    std::array<double, 4> sum{};
    const auto add = [&sum](const ColorStop& stop, double weight) {
        sum[0] += weight * stop.opacity * stop.color.red;
        sum[1] += weight * stop.opacity * stop.color.green;
        sum[2] += weight * stop.opacity * stop.color.blue;
        sum[3] += weight * stop.opacity;
    };
    add(stops.front(), stops.front().position);
    for (std::size_t i = 1; i < stops.size(); ++i)
        for (const std::size_t end : {i - 1, i})
            add(stops[end], (stops[i].position - stops[i - 1].position) / 2);
    add(stops.back(), 1 - stops.back().position);
    if (!(sum[3] > 0))
        return {0, stops.front().color, 0};
    return {0, scene::Color::rounded(sum[0] / sum[3], sum[1] / sum[3], sum[2] / sum[3]), sum[3]};
}

ColorStops overWhite(const ColorStops& stops) {
    return isOpaque(stops) ? stops : over(stops, {{0, scene::kWhite, 1}});
}

}  // namespace psrender::plan
