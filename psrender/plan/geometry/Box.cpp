#include "psrender/plan/geometry/Box.h"

#include "psrender/plan/TextBox.h"
#include "psrender/plan/geometry/Boxes.h"

#include <algorithm>
#include <variant>

namespace psrender::plan {

using scene::Affine;
using scene::Paint;
using scene::Rect;

namespace {

/// Collects the boxes of items.
class Boxes {
public:
    void operator()(const scene::Shape& shape) {
        const bool isStroked = shape.stroke.kind != Paint::Kind::none;
        if (!shape.outline->empty())
            add(isStroked ? strokeBox(shape) : fillBox(shape), shape.transform);
    }
    void operator()(const scene::Text& text) {
        if (const auto box = runBox(*text.run))
            add(*box, text.transform);
    }
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
        const Rect here = mappedBox(box, map);
        all = all ? boxAround(*all, here) : here;
    }
};

}  // namespace

std::optional<Rect> common(const Rect& a, const Rect& b) {
    const auto box = commonBox(a, b);
    return box && box->width > 0 && box->height > 0 ? box : std::nullopt;
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

std::optional<Rect> boxOf(const scene::ItemList& list) {
    Boxes boxes;
    for (const scene::Item& item : list.items)
        std::visit(boxes, item);
    return boxes.all;
}

}  // namespace psrender::plan
