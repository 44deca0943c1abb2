#pragma once

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
    [[nodiscard]] bool isInDash() const;

private:
    const scene::StrokeStyle& style_;
    double period_ = 0;  ///< length of all dashes and gaps
    double position_ = 0;
};

/// Length of a cubic curve, to about a thousandth.
double lengthOfCubic(scene::Point p0, scene::Point p1, scene::Point p2, scene::Point p3);

}  // namespace psrender::plan
