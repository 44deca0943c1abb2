#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// Walks along a stroke and knows at every place whether it lies in a dash or in a gap. A solid
/// stroke is one dash.
class DashWalk {
public:
    explicit DashWalk(const scene::StrokeStyle& style);

    /// Back to the start of a subpath.
    void restart() { position_ = style_.dashOffset; }
    void advance(double length) { position_ += length; }
    /// Whether a dash ends here or goes on: what has just been walked is drawn.
    [[nodiscard]] bool isDashBehind() const { return isDashAt(position_ - period_ * kStep); }
    /// Whether a dash begins here or goes on.
    [[nodiscard]] bool isDashAhead() const { return isDashAt(position_ + period_ * kStep); }

private:
    /// More than rounding moves a dash, less than can be seen.
    static constexpr double kStep = 1e-6;

    [[nodiscard]] bool isDashAt(double position) const;

    const scene::StrokeStyle& style_;
    double period_ = 0;  ///< length of all dashes and gaps
    double position_ = 0;
};

/// Makes a stroke solid whose dashes are too fine to be seen on the page, and counts it in
/// `warnings`: interpreters would draw millions of them, or none as they round to 0.
void removeFineDashes(scene::Shape& shape, Warnings& warnings);

/// Length of a cubic curve, to about a thousandth.
double lengthOfCubic(scene::Point p0, scene::Point p1, scene::Point p2, scene::Point p3);

}  // namespace psrender::plan
