#pragma once

#include "psrender/scene/Outline.h"

namespace psrender::svg {

/// An arc of an ellipse as path data gives it: by its end, not by its centre.
struct Arc {
    double radiusX = 0;
    double radiusY = 0;
    double degrees = 0;  ///< by which the ellipse's x axis is turned
    bool isLarge = false;
    bool isClockwise = false;
    scene::Point end;
};

/// Appends `arc`, which begins at `start`, the outline's current point. Radii too small to
/// reach the end grow until they do; a radius of 0 makes a line.
void appendArc(scene::Outline& outline, scene::Point start, const Arc& arc);

}  // namespace psrender::svg
