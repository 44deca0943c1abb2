#include "Print/internal/InkBox.h"

#include <cmath>
#include <numbers>

namespace Drawing::Print {

namespace {

double cubicAt(double p0, double p1, double p2, double p3, double t) {
    const double s = 1 - t;
    return s * s * s * p0 + 3 * s * s * t * p1 + 3 * s * t * t * p2 + t * t * t * p3;
}

/// Calls `use` with the places between 0 and 1 where the curve turns in one coordinate.
template <class Use>
void extremes(double p0, double p1, double p2, double p3, Use use) {
    const double a = p3 - 3 * p2 + 3 * p1 - p0;
    const double b = 2 * (p2 - 2 * p1 + p0);
    const double c = p1 - p0;
    const auto take = [&](double t) {
        if (t > 0 && t < 1)
            use(t);
    };
    if (std::abs(a) < 1e-12 * (std::abs(b) + std::abs(c))) {
        if (b != 0)
            take(-c / b);
        return;
    }
    const double root = b * b - 4 * a * c;
    if (root < 0)
        return;
    take((-b + std::sqrt(root)) / (2 * a));
    take((-b - std::sqrt(root)) / (2 * a));
}

void holdCurve(Box& box, Spot from, const PathCommand& to) {
    const auto hold = [&](double t) {
        box.hold({cubicAt(from.x, to.x1, to.x2, to.x, t), cubicAt(from.y, to.y1, to.y2, to.y, t)});
    };
    extremes(from.x, to.x1, to.x2, to.x, hold);
    extremes(from.y, to.y1, to.y2, to.y, hold);
}

/// Of length 1, or 0 for none.
struct Direction {
    double x = 0;
    double y = 0;

    explicit operator bool() const { return x != 0 || y != 0; }
};

Direction directionOf(Spot from, Spot to) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length == 0)
        return {};
    return {(to.x - from.x) / length, (to.y - from.y) / length};
}

/// Follows a path from corner to corner and holds the tips of its mitres.
class MiterTips {
public:
    MiterTips(Box& box, const Stroke& stroke)
        : box_(box),
          half_(stroke.getThickness() / 2.0),
          limit_(std::max(1.0F, stroke.getMiterLimit())) {}

    void move(Spot p) {
        start_ = at_ = p;
        first_ = latest_ = {};
    }
    void line(Spot p) { segment(p, p, p); }
    void segment(Spot control1, Spot control2, Spot p) {
        auto out = directionOf(at_, control1);
        if (!out)
            out = directionOf(at_, p);
        auto in = directionOf(control2, p);
        if (!in)
            in = directionOf(at_, p);
        if (out && latest_)
            corner(latest_, out);
        if (!first_)
            first_ = out;
        if (in)
            latest_ = in;
        at_ = p;
    }
    void close() {
        line(start_);
        if (latest_ && first_)
            corner(latest_, first_);
    }

private:
    /// The tip lies on the outer side, at half the width over the sine of half the angle.
    void corner(Direction in, Direction out) {
        const double cosine = in.x * out.x + in.y * out.y;
        const double halfSine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
        if (halfSine * limit_ < 1 || halfSine > 0.9999)
            return;
        const Spot outward{in.x - out.x, in.y - out.y};
        const double length = std::hypot(outward.x, outward.y);
        const double reach = half_ / halfSine - half_;
        box_.hold({at_.x + outward.x / length * reach, at_.y + outward.y / length * reach});
    }

    Box& box_;
    double half_;
    double limit_;
    Spot start_;
    Spot at_;
    Direction first_;
    Direction latest_;
};

}  // namespace

Box pathBox(const Path& path, const Stroke* stroke) {
    Box box;
    const bool hasMiters = stroke != nullptr && stroke->getLineJoin() == LineJoin::miter;
    const Stroke plain;
    MiterTips tips(box, hasMiters ? *stroke : plain);
    Spot at;
    for (std::uint64_t i = 0; i < path.getCommandCount(); ++i) {
        const PathCommand& command = path.getCommandAt(i);
        const Spot to{command.x, command.y};
        if (command.kind == PathCommandKind::close) {
            if (hasMiters)
                tips.close();
            continue;
        }
        box.hold(to);
        if (i == 0 || command.kind == PathCommandKind::moveTo) {
            tips.move(to);
        } else if (command.kind == PathCommandKind::curveTo) {
            holdCurve(box, at, command);
            if (hasMiters)
                tips.segment({command.x1, command.y1}, {command.x2, command.y2}, to);
        } else if (hasMiters) {
            tips.line(to);
        }
        at = to;
    }
    return box;
}

/// A square cap stands out by half the width on a diagonal line.
Box strokedBox(const Box& box, const Stroke& stroke) {
    const double half = stroke.getThickness() / 2.0;
    return box.grown(stroke.getDashCap() == LineCap::square ? half * std::numbers::sqrt2 : half);
}

}  // namespace Drawing::Print
