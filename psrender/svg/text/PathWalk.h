#pragma once

#include "psrender/scene/Outline.h"

#include <optional>
#include <vector>

namespace psrender::svg {

/// Places along an outline by their distance from its start. Curves are walked as chords.
class PathWalk {
public:
    struct Place {
        scene::Point point;
        double angle = 0;  ///< degrees, clockwise from the x axis
    };

    explicit PathWalk(const scene::Outline& outline);

    [[nodiscard]] double length() const { return ends_.empty() ? 0 : ends_.back(); }
    /// Nothing before the start and behind the end.
    [[nodiscard]] std::optional<Place> at(double distance) const;

private:
    struct Chord {
        scene::Point from;
        scene::Point to;
    };

    void add(scene::Point from, scene::Point to);
    void addCubic(scene::Point from, const scene::Point* controls);

    std::vector<Chord> chords_;
    std::vector<double> ends_;  ///< distance at the end of each chord
};

}  // namespace psrender::svg
