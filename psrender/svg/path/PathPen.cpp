#include "psrender/svg/path/PathPen.h"

namespace psrender::svg {

using scene::Point;

namespace {

/// The point two thirds of the way from an end of a quadratic curve to its control point:
/// where the cubic of the same shape has its own.
Point raised(Point end, Point control) {
    return {end.x + (control.x - end.x) * 2 / 3, end.y + (control.y - end.y) * 2 / 3};
}

}  // namespace

void PathPen::move(Point to) {
    start_ = to;
    moveIsDue_ = true;
    arrive(to, Last::other, to);
}

void PathPen::line(Point to) {
    begin();
    outline_.lineTo(to);
    arrive(to, Last::other, to);
}

void PathPen::cubic(Point control1, Point control2, Point to) {
    begin();
    outline_.cubicTo(control1, control2, to);
    arrive(to, Last::cubic, control2);
}

void PathPen::smoothCubic(Point control2, Point to) {
    cubic(mirrored(Last::cubic), control2, to);
}

void PathPen::quadratic(Point control, Point to) {
    begin();
    outline_.cubicTo(raised(current_, control), raised(to, control), to);
    arrive(to, Last::quadratic, control);
}

void PathPen::smoothQuadratic(Point to) {
    quadratic(mirrored(Last::quadratic), to);
}

void PathPen::arc(const Arc& arc) {
    begin();
    const std::size_t before = outline_.points().size();
    appendArc(outline_, current_, arc);
    for (std::size_t end = before + 3; end < outline_.points().size(); end += 3)
        joints_.push_back(end - 1);
    arrive(arc.end, Last::other, arc.end);
}

void PathPen::close() {
    begin();
    outline_.close();
    moveIsDue_ = true;
    arrive(start_, Last::other, start_);
}

void PathPen::begin() {
    if (moveIsDue_)
        outline_.moveTo(start_);
    moveIsDue_ = false;
}

void PathPen::arrive(Point at, Last kind, Point control) {
    current_ = at;
    last_ = kind;
    control_ = control;
}

Point PathPen::mirrored(Last kind) const {
    if (last_ != kind)
        return current_;
    return {2 * current_.x - control_.x, 2 * current_.y - control_.y};
}

}  // namespace psrender::svg
