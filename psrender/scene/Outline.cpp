#include "psrender/scene/Outline.h"

#include <algorithm>

namespace psrender::scene {

Outline Outline::rectangle(const Rect& rect) {
    Outline outline;
    outline.moveTo({rect.x, rect.y});
    outline.lineTo({rect.right(), rect.y});
    outline.lineTo({rect.right(), rect.bottom()});
    outline.lineTo({rect.x, rect.bottom()});
    outline.close();
    return outline;
}

void Outline::moveTo(Point p) {
    verbs_.push_back(Verb::move);
    points_.push_back(p);
}

void Outline::lineTo(Point p) {
    verbs_.push_back(Verb::line);
    points_.push_back(p);
}

void Outline::cubicTo(Point control1, Point control2, Point end) {
    verbs_.push_back(Verb::cubic);
    points_.insert(points_.end(), {control1, control2, end});
}

void Outline::close() {
    verbs_.push_back(Verb::close);
}

void Outline::append(const Outline& other) {
    verbs_.insert(verbs_.end(), other.verbs_.begin(), other.verbs_.end());
    points_.insert(points_.end(), other.points_.begin(), other.points_.end());
}

Outline Outline::transformed(const Affine& map) const {
    Outline result = *this;
    for (Point& p : result.points_)
        p = map.apply(p);
    return result;
}

std::optional<Rect> Outline::controlBox() const {
    if (points_.empty())
        return std::nullopt;
    Point low = points_.front();
    Point high = low;
    for (const Point& p : points_) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return Rect{low.x, low.y, high.x - low.x, high.y - low.y};
}

}  // namespace psrender::scene
