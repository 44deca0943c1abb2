#include "psrender/svg/path/MarkerVertices.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <utility>

namespace psrender::svg {

using scene::Outline;
using scene::Point;

namespace {

using Direction = std::optional<Point>;

/// From `from` to the first of `targets` that lies elsewhere.
Direction direction(Point from, std::initializer_list<Point> targets) {
    for (const Point& to : targets) {
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (length > 0)
            return Point{(to.x - from.x) / length, (to.y - from.y) / length};
    }
    return std::nullopt;
}

Direction reversed(const Direction& forwards) {
    return forwards ? Direction(Point{-forwards->x, -forwards->y}) : std::nullopt;
}

class VertexWalk {
public:
    explicit VertexWalk(const std::vector<std::size_t>& joints) : joints_(joints) {}

    void move(Point to) {
        start_ = vertices_.size();
        vertices_.push_back({to, {}, {}});
        ++point_;
    }
    void line(Point to) {
        const Point from = vertices_.back().at;
        vertices_.back().leaving = direction(from, {to});
        arrive(to, direction(from, {to}), 1);
    }
    void cubic(Point control1, Point control2, Point to) {
        const Point from = vertices_.back().at;
        vertices_.back().leaving = direction(from, {control1, control2, to});
        arrive(to, reversed(direction(to, {control2, control1, from})), 3);
    }
    /// Both ends of a closed subpath lie between the closing line and the first segment.
    void close() {
        const Point from = vertices_.back().at;
        const Point to = vertices_[start_].at;
        Direction closing = direction(from, {to});
        if (!closing)
            closing = vertices_.back().arriving;
        vertices_.back().leaving = closing;
        vertices_[start_].arriving = closing;
        vertices_.push_back({to, closing, vertices_[start_].leaving});
    }
    std::vector<MarkerVertex> take() { return std::move(vertices_); }

private:
    void arrive(Point at, Direction arriving, std::size_t points) {
        if (isAtJoint_)
            vertices_.pop_back();
        point_ += points;
        isAtJoint_ = std::binary_search(joints_.begin(), joints_.end(), point_ - 1);
        vertices_.push_back({at, arriving, {}});
    }

    const std::vector<std::size_t>& joints_;
    std::vector<MarkerVertex> vertices_;
    std::size_t start_ = 0;  ///< of the subpath
    std::size_t point_ = 0;
    bool isAtJoint_ = false;
};

}  // namespace

std::vector<MarkerVertex> markerVertices(const Outline& outline,
                                         const std::vector<std::size_t>& joints) {
    VertexWalk walk(joints);
    const Point* next = outline.points().data();
    for (const Outline::Verb verb : outline.verbs()) {
        switch (verb) {
            case Outline::Verb::move:
                walk.move(*next++);
                break;
            case Outline::Verb::line:
                walk.line(*next++);
                break;
            case Outline::Verb::cubic:
                walk.cubic(next[0], next[1], next[2]);
                next += 3;
                break;
            case Outline::Verb::close:
                walk.close();
                break;
        }
    }
    return walk.take();
}

double MarkerVertex::angle() const {
    const Point in = arriving.value_or(leaving.value_or(Point{1, 0}));
    const Point out = leaving.value_or(in);
    Point middle{in.x + out.x, in.y + out.y};
    if (std::hypot(middle.x, middle.y) < 1e-9)
        middle = {-in.y, in.x};
    return std::atan2(middle.y, middle.x) * 180 / std::numbers::pi;
}

}  // namespace psrender::svg
