#pragma once

#include "psrender/scene/Outline.h"

#include <cstddef>
#include <vector>

namespace psrender::plan {

/// One subpath as straight lines.
struct Polyline {
    std::vector<scene::Point> points;
    bool closed = false;
};

/// The subpaths of `outline`, mapped by `map`, with curves replaced by chords that stay within
/// `tolerance`, given in mapped units.
std::vector<Polyline> flatten(const scene::Outline& outline, const scene::Affine& map,
                              double tolerance);

/// The subpaths as an outline again.
scene::Outline toOutline(const std::vector<Polyline>& lines);

/// How many lines and chords that makes.
std::size_t countChords(const scene::Outline& outline, const scene::Affine& map, double tolerance);

/// Calls `line(from, to)`, `cubic(from, c1, c2, to)`, `move(p)` and `close(from, start)` for every
/// step of `outline` with the points that it runs between.
template <class Visitor>
void visit(const scene::Outline& outline, Visitor& visitor) {
    const scene::Point* next = outline.points().data();
    scene::Point start;
    scene::Point at;
    for (const scene::Outline::Verb verb : outline.verbs()) {
        switch (verb) {
            case scene::Outline::Verb::move:
                start = at = *next++;
                visitor.move(at);
                break;
            case scene::Outline::Verb::line:
                visitor.line(at, next[0]);
                at = *next++;
                break;
            case scene::Outline::Verb::cubic:
                visitor.cubic(at, next[0], next[1], next[2]);
                at = next[2];
                next += 3;
                break;
            case scene::Outline::Verb::close:
                visitor.close(at, start);
                at = start;
                break;
        }
    }
}

/// The point of a cubic at `t`, 0 to 1.
scene::Point pointOfCubic(scene::Point p0, scene::Point p1, scene::Point p2, scene::Point p3,
                          double t);

}  // namespace psrender::plan
