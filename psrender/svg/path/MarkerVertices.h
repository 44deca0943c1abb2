#pragma once

#include "psrender/scene/Outline.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace psrender::svg {

/// A place where a path begins, ends or goes on, with the directions in which it arrives and
/// leaves; none where it does not, or stands still.
struct MarkerVertex {
    scene::Point at;
    std::optional<scene::Point> arriving;
    std::optional<scene::Point> leaving;

    /// Half-way between the directions, in degrees clockwise from the x axis; 0 without any.
    [[nodiscard]] double angle() const;
};

/// The vertices of an outline. Of its points, those at `joints`, which ascend, are none: there an
/// arc goes on.
std::vector<MarkerVertex> markerVertices(const scene::Outline& outline,
                                         const std::vector<std::size_t>& joints);

}  // namespace psrender::svg
