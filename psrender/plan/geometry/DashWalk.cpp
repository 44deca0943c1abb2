#include "psrender/plan/geometry/DashWalk.h"

#include "psrender/plan/geometry/Polyline.h"

#include <cmath>
#include <numeric>

namespace psrender::plan {

namespace {

constexpr double kFinestPeriod = 0.01;  // points

double periodOf(const scene::StrokeStyle& style) {
    return std::accumulate(style.dashes.begin(), style.dashes.end(), 0.0);
}

}  // namespace

DashWalk::DashWalk(const scene::StrokeStyle& style) : style_(style), period_(periodOf(style)) {
    restart();
}

bool DashWalk::isDashAt(double position) const {
    if (!(period_ > 0))
        return true;
    double rest = std::fmod(position, period_);
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

void removeFineDashes(scene::Shape& shape, Warnings& warnings) {
    auto& dashes = shape.strokeStyle.dashes;
    if (dashes.empty() || periodOf(shape.strokeStyle) * shape.transform.meanScale() > kFinestPeriod)
        return;
    dashes.clear();
    if (shape.stroke.kind != scene::Paint::Kind::none)
        warnings.add("a line with dashes too fine to be seen is drawn solid");
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
