#include "psrender/plan/Box.h"

#include <algorithm>
#include <variant>

namespace psrender::plan {

using scene::Affine;
using scene::Paint;
using scene::Point;
using scene::Rect;

namespace {

Rect between(Point low, Point high) {
    return {low.x, low.y, high.x - low.x, high.y - low.y};
}

Rect grown(const Rect& box, double by) {
    return {box.x - by, box.y - by, box.width + 2 * by, box.height + 2 * by};
}

Rect around(const Rect& a, const Rect& b) {
    return between(
        {std::min(a.x, b.x), std::min(a.y, b.y)},
        {std::max(a.x + a.width, b.x + b.width), std::max(a.y + a.height, b.y + b.height)});
}

/// Collects the boxes of items.
class Boxes {
public:
    void operator()(const scene::Shape& shape) {
        const bool isStroked = shape.stroke.kind != Paint::Kind::none;
        if (!shape.outline->empty())
            add(isStroked ? strokeBox(shape) : fillBox(shape), shape.transform);
    }
    void operator()(const scene::Text& text) { add(textBox(text), text.transform); }
    void operator()(const scene::Picture& picture) { add({0, 0, 1, 1}, picture.transform); }
    void operator()(const scene::Placement& placement) {
        if (const auto inner = boxOf(*placement.symbol))
            add(*inner, placement.transform);
    }
    void operator()(const scene::BeginGroup& /*group*/) {}
    void operator()(const scene::EndGroup& /*end*/) {}

    std::optional<Rect> all;

private:
    void add(const Rect& box, const Affine& map) {
        const Rect here = mapped(box, map);
        all = all ? around(*all, here) : here;
    }
};

}  // namespace

Rect mapped(const Rect& box, const Affine& map) {
    Point low = map.apply({box.x, box.y});
    Point high = low;
    for (const Point corner : {Point{box.x + box.width, box.y},
                               {box.x, box.y + box.height},
                               {box.x + box.width, box.y + box.height}}) {
        const Point p = map.apply(corner);
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return between(low, high);
}

std::optional<Rect> common(const Rect& a, const Rect& b) {
    const Rect box =
        between({std::max(a.x, b.x), std::max(a.y, b.y)},
                {std::min(a.x + a.width, b.x + b.width), std::min(a.y + a.height, b.y + b.height)});
    return box.width > 0 && box.height > 0 ? std::optional(box) : std::nullopt;
}

Rect fillBox(const scene::Shape& shape) {
    return shape.outline->controlBox().value_or(Rect{});
}

/// Mitres and the corners of square caps reach farther than half the width.
Rect strokeBox(const scene::Shape& shape) {
    const auto& style = shape.strokeStyle;
    const double miter = style.join == scene::Join::miter ? style.miterLimit : 1;
    return grown(fillBox(shape), style.width / 2 * std::max(miter, 1.5));
}

Rect textBox(const scene::Text& text) {
    constexpr double reach = 2;  // ems around a glyph's origin
    const auto& glyphs = text.run->glyphs;
    Rect box;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const Rect origin{glyphs[i].origin.x, glyphs[i].origin.y, 0, 0};
        box = i == 0 ? origin : around(box, origin);
    }
    return grown(box, text.run->size * reach);
}

std::optional<Rect> boxOf(const scene::ItemList& list) {
    Boxes boxes;
    for (const scene::Item& item : list.items)
        std::visit(boxes, item);
    return boxes.all;
}

}  // namespace psrender::plan
