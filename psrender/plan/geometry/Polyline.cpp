#include "psrender/plan/geometry/Polyline.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using scene::Point;

namespace {

constexpr double kMostChords = 500;

/// The chords of a cubic deviate by at most sqrt(3)/18 of its bend in n^2 parts; the bend is how
/// far its controls are from those of a straight line at even speed.
int chordCount(Point p0, Point p1, Point p2, Point p3, double tolerance) {
    const double bend = std::max(distance(p0 + p2, p1 * 2), distance(p1 + p3, p2 * 2));
    return static_cast<int>(
        std::clamp(std::ceil(std::sqrt(0.75 * bend / tolerance)), 1.0, kMostChords));
}

class Flattener {
public:
    Flattener(const scene::Affine& map, double tolerance) : map_(map), tolerance_(tolerance) {}

    void move(Point p) { lines_.push_back({{map_.apply(p)}, false}); }
    void line(Point from, Point to) { open(from).points.push_back(map_.apply(to)); }
    void cubic(Point from, Point c1, Point c2, Point to) {
        Polyline& current = open(from);
        const Point p[] = {map_.apply(from), map_.apply(c1), map_.apply(c2), map_.apply(to)};
        const int count = chordCount(p[0], p[1], p[2], p[3], tolerance_);
        for (int i = 1; i < count; ++i)
            current.points.push_back(pointOfCubic(p[0], p[1], p[2], p[3], double(i) / count));
        current.points.push_back(p[3]);
    }
    void close(Point /*from*/, Point /*start*/) {
        if (!lines_.empty())
            lines_.back().closed = true;
    }
    std::vector<Polyline> take() { return std::move(lines_); }

private:
    /// Drawing on behind a close starts a subpath at the point where the closed one began.
    Polyline& open(Point from) {
        if (lines_.empty() || lines_.back().closed)
            move(from);
        return lines_.back();
    }

    scene::Affine map_;
    double tolerance_;
    std::vector<Polyline> lines_;
};

class ChordCounter {
public:
    ChordCounter(const scene::Affine& map, double tolerance) : map_(map), tolerance_(tolerance) {}

    void move(Point /*p*/) { ++count; }
    void line(Point /*from*/, Point /*to*/) { ++count; }
    void cubic(Point from, Point c1, Point c2, Point to) {
        count += static_cast<std::size_t>(chordCount(map_.apply(from), map_.apply(c1),
                                                     map_.apply(c2), map_.apply(to), tolerance_));
    }
    void close(Point /*from*/, Point /*start*/) {}

    std::size_t count = 0;

private:
    scene::Affine map_;
    double tolerance_;
};

}  // namespace

Point pointOfCubic(Point p0, Point p1, Point p2, Point p3, double t) {
    const double s = 1 - t;
    const double w[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    return {w[0] * p0.x + w[1] * p1.x + w[2] * p2.x + w[3] * p3.x,
            w[0] * p0.y + w[1] * p1.y + w[2] * p2.y + w[3] * p3.y};
}

std::vector<Polyline> flatten(const scene::Outline& outline, const scene::Affine& map,
                              double tolerance) {
    Flattener flattener(map, tolerance);
    visit(outline, flattener);
    return flattener.take();
}

scene::Outline toOutline(const std::vector<Polyline>& lines) {
    scene::Outline outline;
    for (const Polyline& line : lines) {
        outline.moveTo(line.points.front());
        for (std::size_t i = 1; i < line.points.size(); ++i)
            outline.lineTo(line.points[i]);
        if (line.closed)
            outline.close();
    }
    return outline;
}

std::size_t countChords(const scene::Outline& outline, const scene::Affine& map, double tolerance) {
    ChordCounter counter(map, tolerance);
    visit(outline, counter);
    return counter.count;
}

}  // namespace psrender::plan
