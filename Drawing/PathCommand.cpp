#include "Drawing/PathCommand.h"

#include "Drawing/Path.h"
#include "Drawing/Util.h"

#include <algorithm>
#include <cmath>

namespace Drawing {

namespace {

void addPlainRectangle(Path& path, float x, float y, float width, float height) {
    path.reserve(5);
    path.moveTo(x, y);
    path.lineTo(x + width, y);
    path.lineTo(x + width, y + height);
    path.lineTo(x, y + height);
    path.close();
}

/// A rectangle whose corners are quarter ellipses; `rx` and `ry` carry the signs of the sides.
void addRoundedRectangle(Path& path, float x, float y, float width, float height, float rx,
                         float ry) {
    const float right = x + width;
    const float bottom = y + height;
    const auto flat = static_cast<float>(1 - kQuarterArc);
    const float cx = rx * flat;  // from a corner to the control point beside it
    const float cy = ry * flat;
    path.reserve(10);
    path.moveTo(x + rx, y);
    path.lineTo(right - rx, y);
    path.curveTo(right - cx, y, right, y + cy, right, y + ry);
    path.lineTo(right, bottom - ry);
    path.curveTo(right, bottom - cy, right - cx, bottom, right - rx, bottom);
    path.lineTo(x + rx, bottom);
    path.curveTo(x + cx, bottom, x, bottom - cy, x, bottom - ry);
    path.lineTo(x, y + ry);
    path.curveTo(x, y + cy, x + cx, y, x + rx, y);
    path.close();
}

float fittingRadius(float radius, float side) {
    return std::copysign(std::min(radius, std::abs(side) / 2), side);
}

}  // namespace

Core::SmartPtr<Path> PathCommand::rectangle(float x, float y, float width, float height,
                                            float radiusX, float radiusY) {
    auto path = Core::makeObject<Path>();
    if (radiusX > 0 && radiusY > 0)
        addRoundedRectangle(*path, x, y, width, height, fittingRadius(radiusX, width),
                            fittingRadius(radiusY, height));
    else
        addPlainRectangle(*path, x, y, width, height);
    return path;
}

}  // namespace Drawing
