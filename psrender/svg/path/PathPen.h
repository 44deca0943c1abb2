#pragma once

#include "psrender/scene/Outline.h"
#include "psrender/svg/path/ArcToCubics.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace psrender::svg {

/// Turns path segments into an outline and keeps what the next segment may refer to. A move
/// is written when something is drawn from it, so moves that draw nothing leave no trace
/// and every subpath opens with one, also after a close.
class PathPen {
public:
    [[nodiscard]] scene::Point current() const { return current_; }
    scene::Outline takeOutline() { return std::move(outline_); }
    /// Which of the outline's points lie within an arc that several curves make up.
    std::vector<std::size_t> takeJoints() { return std::move(joints_); }

    void move(scene::Point to);
    void line(scene::Point to);
    void cubic(scene::Point control1, scene::Point control2, scene::Point to);
    /// A cubic whose first control point mirrors the last one of a cubic just before.
    void smoothCubic(scene::Point control2, scene::Point to);
    void quadratic(scene::Point control, scene::Point to);
    void smoothQuadratic(scene::Point to);
    void arc(const Arc& arc);
    void close();

private:
    enum class Last : std::uint8_t { other, cubic, quadratic };

    void begin();
    void arrive(scene::Point at, Last kind, scene::Point control);
    [[nodiscard]] scene::Point mirrored(Last kind) const;

    scene::Outline outline_;
    std::vector<std::size_t> joints_;
    scene::Point start_;
    scene::Point current_;
    scene::Point control_;  ///< the last control point of the segment before
    Last last_ = Last::other;
    bool moveIsDue_ = true;
};

}  // namespace psrender::svg
