#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Export.h"
#include "Drawing/Forward.h"

#include <cstdint>

namespace Drawing {

/// One step of a path. Values other than these are allowed and draw nothing.
enum class PathCommandKind : std::int32_t {
    moveTo = 2,
    close = 3,
    lineTo = 4,
    curveTo = 5,
};

/// A step with its points in user space: the end point, and for a cubic Bezier curve the two
/// control points. Points that a kind does not need are 0.
struct DRAWING_API PathCommand {
    PathCommandKind kind = PathCommandKind::moveTo;
    float x = 0;
    float y = 0;
    float x1 = 0;
    float y1 = 0;
    float x2 = 0;
    float y2 = 0;

    /// The outline of a rectangle: move to (x, y), three lines, close. With both corner radii
    /// above 0 the corners are quarter ellipses; radii beyond half a side are cut to it.
    static Core::SmartPtr<Path> rectangle(float x, float y, float width, float height,
                                          float radiusX, float radiusY);

    friend bool operator==(const PathCommand&, const PathCommand&) = default;
};

}  // namespace Drawing
