#include "psrender/plan/geometry/Dashes.h"

#include <cmath>
#include <numeric>
#include <utility>

namespace psrender::plan {

using scene::Point;

namespace {

constexpr double kMostDashes = 200'000;

double lengthOf(const Polyline& line) {
    double length = 0;
    for (std::size_t i = 1; i < line.points.size(); ++i)
        length += distance(line.points[i - 1], line.points[i]);
    return length;
}

/// Cuts one line after the other at the ends of dashes.
class Cutter {
public:
    explicit Cutter(const scene::StrokeStyle& style) : style_(style) {}

    void cut(const Polyline& line) {
        begin();
        const std::size_t first = pieces_.size();
        if (isDash())
            pieces_.push_back({{line.points.front()}, false});
        const std::size_t count = line.points.size() - (line.closed ? 0 : 1);
        for (std::size_t i = 0; i < count; ++i)
            walk(line.points[i], line.points[(i + 1) % line.points.size()]);
        if (line.closed && startsInDash() && isDash() && pieces_.size() > first + 1)
            joinEnds(first);
    }

    std::vector<Polyline> take() { return std::move(pieces_); }

private:
    void begin() {
        index_ = 0;
        rest_ = style_.dashes[0];
        double offset = style_.dashOffset;
        while (offset >= rest_) {
            offset -= rest_;
            next();
        }
        rest_ -= offset;
        first_ = index_;
    }
    void next() {
        index_ = (index_ + 1) % style_.dashes.size();
        rest_ = style_.dashes[index_];
    }
    [[nodiscard]] bool isDash() const { return index_ % 2 == 0; }
    [[nodiscard]] bool startsInDash() const { return first_ % 2 == 0; }

    void walk(Point from, Point to) {
        const double length = distance(from, to);
        double done = 0;
        while (length - done > rest_) {
            done += rest_;
            const double t = done / length;
            turn({std::lerp(from.x, to.x, t), std::lerp(from.y, to.y, t)});
        }
        rest_ -= length - done;
        if (isDash())
            pieces_.back().points.push_back(to);
    }
    void turn(Point at) {
        if (isDash())
            pieces_.back().points.push_back(at);
        next();
        if (isDash())
            pieces_.push_back({{at}, false});
    }
    /// A dash that goes on across a closed line's start is one dash.
    void joinEnds(std::size_t first) {
        auto& last = pieces_.back().points;
        const auto& start = pieces_[first].points;
        last.insert(last.end(), start.begin() + 1, start.end());
        std::swap(pieces_[first], pieces_.back());
        pieces_.pop_back();
    }

    const scene::StrokeStyle& style_;
    std::vector<Polyline> pieces_;
    std::size_t index_ = 0;
    std::size_t first_ = 0;
    double rest_ = 0;
};

}  // namespace

std::vector<Polyline> dashesOf(const std::vector<Polyline>& lines,
                               const scene::StrokeStyle& style) {
    const double period = std::accumulate(style.dashes.begin(), style.dashes.end(), 0.0);
    double length = 0;
    for (const Polyline& line : lines)
        length += lengthOf(line);
    const auto entries = static_cast<double>(style.dashes.size());
    if (!(period > 0) || !(length / period * entries < kMostDashes) ||
        !(style.dashOffset / period < kMostDashes))
        return lines;
    Cutter cutter(style);
    for (const Polyline& line : lines)
        cutter.cut(line);
    return cutter.take();
}

}  // namespace psrender::plan
