#include "psrender/plan/geometry/SquareDots.h"

#include "psrender/plan/geometry/Polyline.h"

#include <memory>
#include <utility>

namespace psrender::plan {

using scene::Outline;
using scene::Point;

namespace {

/// Collects the subpaths that are drawn, if only by a close, and stay on one point.
class DotCollector {
public:
    explicit DotCollector(double width) : width_(width) {}

    void move(Point p) {
        finish();
        at_ = p;
    }
    void line(Point /*from*/, Point to) { draw(to == at_); }
    void cubic(Point /*from*/, Point c1, Point c2, Point to) {
        draw(c1 == at_ && c2 == at_ && to == at_);
    }
    void close(Point /*from*/, Point start) {
        draw(start == at_);
        move(start);
    }
    Outline take() {
        finish();
        return std::move(squares_);
    }

private:
    void draw(bool staysHere) {
        isDrawn_ = true;
        isDot_ = isDot_ && staysHere;
    }
    void finish() {
        const double half = width_ / 2;
        if (isDrawn_ && isDot_)
            squares_.append(Outline::rectangle({at_.x - half, at_.y - half, width_, width_}));
        isDrawn_ = false;
        isDot_ = true;
    }

    double width_;
    Outline squares_;
    Point at_;
    bool isDrawn_ = false;
    bool isDot_ = true;
};

}  // namespace

std::optional<scene::Shape> squareDots(const scene::Shape& shape) {
    if (!isPainted(shape.stroke) || shape.strokeStyle.cap != scene::Cap::square)
        return std::nullopt;
    DotCollector collector(shape.strokeStyle.width);
    visit(*shape.outline, collector);
    Outline squares = collector.take();
    if (squares.empty())
        return std::nullopt;
    scene::Shape dots = shape.onlyStroke();
    dots.outline = std::make_shared<const Outline>(std::move(squares));
    dots.fill = std::exchange(dots.stroke, {});
    dots.fillRule = scene::FillRule::nonZero;
    return dots;
}

}  // namespace psrender::plan
