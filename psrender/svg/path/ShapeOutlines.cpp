#include "psrender/svg/path/ShapeOutlines.h"

namespace psrender::svg {

using scene::Outline;
using scene::Point;
using scene::Rect;

namespace {

/// How far along its tangent the control point of a quarter circle lies, as a share of the
/// radius.
constexpr double kQuarterHandle = 0.5522847498307936;

/// A quarter of an ellipse from `from` to `to` around the corner where their tangents meet.
void appendQuarter(Outline& outline, Point from, Point corner, Point to) {
    const auto towards = [&](Point end) {
        return Point{end.x + (corner.x - end.x) * kQuarterHandle,
                     end.y + (corner.y - end.y) * kQuarterHandle};
    };
    outline.cubicTo(towards(from), towards(to), to);
}

Outline sharpRectangle(const Rect& r) {
    Outline outline;
    outline.moveTo({r.x, r.y});
    outline.lineTo({r.x + r.width, r.y});
    outline.lineTo({r.x + r.width, r.y + r.height});
    outline.lineTo({r.x, r.y + r.height});
    outline.close();
    return outline;
}

}  // namespace

Outline rectangleOutline(const Rect& rect, double radiusX, double radiusY) {
    if (radiusX <= 0 || radiusY <= 0)
        return sharpRectangle(rect);
    const double left = rect.x;
    const double top = rect.y;
    const double right = rect.x + rect.width;
    const double bottom = rect.y + rect.height;
    Outline outline;
    outline.moveTo({left + radiusX, top});
    outline.lineTo({right - radiusX, top});
    appendQuarter(outline, {right - radiusX, top}, {right, top}, {right, top + radiusY});
    outline.lineTo({right, bottom - radiusY});
    appendQuarter(outline, {right, bottom - radiusY}, {right, bottom}, {right - radiusX, bottom});
    outline.lineTo({left + radiusX, bottom});
    appendQuarter(outline, {left + radiusX, bottom}, {left, bottom}, {left, bottom - radiusY});
    outline.lineTo({left, top + radiusY});
    appendQuarter(outline, {left, top + radiusY}, {left, top}, {left + radiusX, top});
    outline.close();
    return outline;
}

Outline ellipseOutline(Point centre, double radiusX, double radiusY) {
    const double left = centre.x - radiusX;
    const double top = centre.y - radiusY;
    const double right = centre.x + radiusX;
    const double bottom = centre.y + radiusY;
    Outline outline;
    outline.moveTo({right, centre.y});
    appendQuarter(outline, {right, centre.y}, {right, bottom}, {centre.x, bottom});
    appendQuarter(outline, {centre.x, bottom}, {left, bottom}, {left, centre.y});
    appendQuarter(outline, {left, centre.y}, {left, top}, {centre.x, top});
    appendQuarter(outline, {centre.x, top}, {right, top}, {right, centre.y});
    outline.close();
    return outline;
}

Outline lineOutline(Point from, Point to) {
    Outline outline;
    outline.moveTo(from);
    outline.lineTo(to);
    return outline;
}

bool hasInside(const Outline& outline) {
    if (outline.points().size() < 3)
        return false;
    const auto box = outline.controlBox();
    return box && box->width > 0 && box->height > 0;
}

}  // namespace psrender::svg
