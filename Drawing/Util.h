#pragma once

#include "Core/Forward.h"
#include "Drawing/Export.h"
#include "Drawing/Forward.h"

namespace Drawing {

/// How far the control points of a quarter circle of radius 1 stand from its ends: the cubic
/// passes through the circle's middle, 4/3 (sqrt 2 - 1). It is off by 0.03 % of the radius.
inline constexpr double kQuarterArc = 0.5522847498307936;

class DRAWING_API Util {
public:
    /// An arc of the ellipse in the box (left, top, right, bottom) as cubic curves, none longer
    /// than a quarter turn: appends four points a curve (start, two controls, end) to `points`.
    /// Angles in degrees: 0 is the rightmost point, positive turns from the x axis to the y axis.
    static void bezierArc(float left, float top, float right, float bottom, double start,
                          double extent, Core::Vector<XPointF>& points);
};

}  // namespace Drawing
