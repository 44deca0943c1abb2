#include "psrender/plan/blend/HatFit.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

namespace {

constexpr double kSegments = HatFit::kKnots - 1;
/// Draws a knot without samples to its neighbours.
constexpr double kTension = 1e-4;

struct Spot {
    std::size_t knot;
    double share;  ///< of the way to the next one
};

/// What is no number counts as the start.
Spot spotOf(double position) {
    const double steps = position > 0 ? std::min(position, 1.0) * kSegments : 0;
    const double knot = std::min(std::floor(steps), kSegments - 1);
    return {static_cast<std::size_t>(knot), steps - knot};
}

}  // namespace

void HatFit::add(double position, const Sample& sample) {
    const auto [knot, share] = spotOf(position);
    own_[knot] += (1 - share) * (1 - share);
    own_[knot + 1] += share * share;
    next_[knot] += share * (1 - share);
    for (std::size_t part = 0; part < 3; ++part) {
        knots_[knot][part] += (1 - share) * sample[part];
        knots_[knot + 1][part] += share * sample[part];
    }
}

void HatFit::solve() {
    for (std::size_t i = 0; i + 1 < kKnots; ++i) {
        own_[i] += kTension;
        own_[i + 1] += kTension;
        next_[i] -= kTension;
    }
    for (std::size_t i = 1; i < kKnots; ++i) {
        const double factor = next_[i - 1] / own_[i - 1];
        own_[i] -= factor * next_[i - 1];
        for (std::size_t part = 0; part < 3; ++part)
            knots_[i][part] -= factor * knots_[i - 1][part];
    }
    for (std::size_t i = kKnots; i-- > 0;)
        for (std::size_t part = 0; part < 3; ++part) {
            const double beyond = i + 1 < kKnots ? next_[i] * knots_[i + 1][part] : 0;
            knots_[i][part] = (knots_[i][part] - beyond) / own_[i];
        }
}

HatFit::Color HatFit::at(double position) const {
    const auto [knot, share] = spotOf(position);
    Color color{};
    for (std::size_t part = 0; part < 3; ++part)
        color[part] = std::lerp(knots_[knot][part], knots_[knot + 1][part], share);
    return color;
}

}  // namespace psrender::plan
