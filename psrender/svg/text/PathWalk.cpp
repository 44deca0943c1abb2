#include "psrender/svg/text/PathWalk.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace psrender::svg {

using scene::Outline;
using scene::Point;

namespace {

constexpr int kChordsACurve = 32;

Point pointOf(Point from, const Point* c, double t) {
    const double s = 1 - t;
    const double weights[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    return {weights[0] * from.x + weights[1] * c[0].x + weights[2] * c[1].x + weights[3] * c[2].x,
            weights[0] * from.y + weights[1] * c[0].y + weights[2] * c[1].y + weights[3] * c[2].y};
}

}  // namespace

PathWalk::PathWalk(const Outline& outline, bool isReversed) : isReversed_(isReversed) {
    const Point* next = outline.points().data();
    Point start;
    Point at;
    for (const Outline::Verb verb : outline.verbs()) {
        switch (verb) {
            case Outline::Verb::move:
                start = at = *next++;
                break;
            case Outline::Verb::line:
                add(at, next[0]);
                at = *next++;
                break;
            case Outline::Verb::cubic:
                addCubic(at, next);
                at = next[2];
                next += 3;
                break;
            case Outline::Verb::close:
                add(at, start);
                at = start;
                break;
        }
    }
}

void PathWalk::add(Point from, Point to) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length <= 0)
        return;
    chords_.push_back({from, to});
    ends_.push_back(this->length() + length);
}

void PathWalk::addCubic(Point from, const Point* controls) {
    Point last = from;
    for (int i = 1; i <= kChordsACurve; ++i) {
        const Point next = pointOf(from, controls, static_cast<double>(i) / kChordsACurve);
        add(last, next);
        last = next;
    }
}

std::optional<PathWalk::Place> PathWalk::at(double distance) const {
    constexpr double kBackwards = 180;
    auto place = forwards(isReversed_ ? length() - distance : distance);
    if (place && isReversed_)
        place->angle += kBackwards;
    return place;
}

std::optional<PathWalk::Place> PathWalk::forwards(double distance) const {
    if (!(distance >= 0 && distance <= length()) || chords_.empty())
        return std::nullopt;
    const auto found = std::ranges::lower_bound(ends_, distance);
    const auto index = std::min(static_cast<std::size_t>(found - ends_.begin()), ends_.size() - 1);
    const auto& [from, to] = chords_[index];
    const double begin = index == 0 ? 0 : ends_[index - 1];
    const double share = (distance - begin) / (ends_[index] - begin);
    return Place{{from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share},
                 std::atan2(to.y - from.y, to.x - from.x) * 180 / std::numbers::pi};
}

}  // namespace psrender::svg
