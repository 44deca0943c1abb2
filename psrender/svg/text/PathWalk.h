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

    /// From its end to its start if `isReversed`.
    explicit PathWalk(const scene::Outline& outline, bool isReversed = false);

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

    [[nodiscard]] std::optional<Place> forwards(double distance) const;

    std::vector<Chord> chords_;
    std::vector<double> ends_;  ///< distance at the end of each chord
    bool isReversed_;
};

}  // namespace psrender::svg
