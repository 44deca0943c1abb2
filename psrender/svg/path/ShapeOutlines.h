#pragma once

#include "psrender/scene/Outline.h"

namespace psrender::svg {

/// A rectangle, its corners rounded by quarters of ellipses if both radii are above 0.
/// Radii must not exceed half the sides.
scene::Outline rectangleOutline(const scene::Rect& rect, double radiusX, double radiusY);

scene::Outline ellipseOutline(scene::Point centre, double radiusX, double radiusY);

scene::Outline lineOutline(scene::Point from, scene::Point to);

/// Whether filling can show anything: a single line has no inside, and neither has an
/// outline that is flat along an axis, which PostScript would fill as a hairline.
bool hasInside(const scene::Outline& outline);

}  // namespace psrender::svg
