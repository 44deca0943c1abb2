#include "psrender/plan/DashWalk.h"

#include "psrender/plan/Polyline.h"

#include <cmath>
#include <numeric>

namespace psrender::plan {

DashWalk::DashWalk(const scene::StrokeStyle& style)
    : style_(style), period_(std::accumulate(style.dashes.begin(), style.dashes.end(), 0.0)) {
    restart();
}

bool DashWalk::isInDash() const {
    if (!(period_ > 0))
        return true;
    double rest = std::fmod(position_, period_);
    if (rest < 0)
        rest += period_;
    bool dash = true;
    for (const double part : style_.dashes) {
        if (rest < part)
            return dash;
        rest -= part;
        dash = !dash;
    }
    return false;
}

double lengthOfCubic(scene::Point p0, scene::Point p1, scene::Point p2, scene::Point p3) {
    constexpr int kChords = 32;
    double length = 0;
    scene::Point last = p0;
    for (int i = 1; i <= kChords; ++i) {
        const scene::Point next = pointOfCubic(p0, p1, p2, p3, double(i) / kChords);
        length += std::hypot(next.x - last.x, next.y - last.y);
        last = next;
    }
    return length;
}

}  // namespace psrender::plan
