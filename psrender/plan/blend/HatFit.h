#pragma once

#include "psrender/plan/gradient/PageGradient.h"

#include <array>
#include <cstddef>

namespace psrender::plan {

/// Colours at evenly spaced knots from 0 to 1, straight in between, that come closest to samples
/// along the way by the least squares.
class HatFit {
public:
    static constexpr std::size_t kKnots = 9;
    using Color = std::array<double, 3>;

    void add(double position, const Sample& sample);
    /// After all samples; once.
    void solve();
    [[nodiscard]] Color at(double position) const;
    [[nodiscard]] const Color& knot(std::size_t index) const { return knots_[index]; }

private:
    // The normal equations: a knot meets its neighbours only.
    std::array<double, kKnots> own_{};
    std::array<double, kKnots> next_{};
    std::array<Color, kKnots> knots_{};
};

}  // namespace psrender::plan
