#pragma once

#include "psrender/scene/Geometry.h"

#include <algorithm>
#include <optional>

namespace psrender::plan {

/// What both have in common; nothing if they do not even touch.
inline std::optional<scene::Rect> commonBox(const scene::Rect& a, const scene::Rect& b) {
    const double left = std::max(a.x, b.x);
    const double top = std::max(a.y, b.y);
    const double right = std::min(a.x + a.width, b.x + b.width);
    const double bottom = std::min(a.y + a.height, b.y + b.height);
    if (!(left <= right && top <= bottom))
        return std::nullopt;
    return scene::Rect{left, top, right - left, bottom - top};
}

inline bool contains(const scene::Rect& outer, const scene::Rect& inner) {
    return inner.x >= outer.x && inner.y >= outer.y &&
           inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

inline scene::Rect boxAround(const scene::Rect& a, const scene::Rect& b) {
    const double left = std::min(a.x, b.x);
    const double top = std::min(a.y, b.y);
    return {left, top, std::max(a.x + a.width, b.x + b.width) - left,
            std::max(a.y + a.height, b.y + b.height) - top};
}

inline scene::Rect grown(const scene::Rect& box, double by) {
    return {box.x - by, box.y - by, box.width + 2 * by, box.height + 2 * by};
}

/// The box around a mapped box.
inline scene::Rect mappedBox(const scene::Rect& box, const scene::Affine& map) {
    const auto spot = [&map](double x, double y) {
        const scene::Point p = map.apply({x, y});
        return scene::Rect{p.x, p.y, 0, 0};
    };
    const double right = box.x + box.width;
    const double bottom = box.y + box.height;
    return boxAround(boxAround(spot(box.x, box.y), spot(right, box.y)),
                     boxAround(spot(box.x, bottom), spot(right, bottom)));
}

}  // namespace psrender::plan
