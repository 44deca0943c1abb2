#include "psrender/plan/geometry/ItemBox.h"

#include <algorithm>
#include <numbers>
#include <variant>

namespace psrender::plan {

using scene::Rect;

namespace {

struct BoxFinder {
    std::optional<Rect> operator()(const scene::Shape& shape) const {
        return painted(shape.outline->controlBox(), shape);
    }
    /// Few glyphs reach farther from their origin than the size of the em.
    std::optional<Rect> operator()(const scene::Text& text) const {
        std::optional<Rect> box;
        for (const scene::PlacedGlyph& glyph : text.run->glyphs)
            box = around(box, {glyph.origin.x, glyph.origin.y, 0, 0});
        return painted(box ? std::optional(box->grown(text.run->size)) : box, text);
    }
    std::optional<Rect> operator()(const scene::Picture& picture) const {
        return Rect{0, 0, 1, 1}.mapped(picture.transform);
    }
    std::optional<Rect> operator()(const scene::Placement& placement) const {
        const auto box = boxOf(*placement.symbol);
        return box ? std::optional(box->mapped(placement.transform)) : box;
    }
    std::optional<Rect> operator()(const scene::BeginGroup& /*group*/) const { return {}; }
    std::optional<Rect> operator()(const scene::EndGroup& /*end*/) const { return {}; }

private:
    template <class Painted>
    static std::optional<Rect> painted(const std::optional<Rect>& box, const Painted& item) {
        if (!box || (!isPainted(item.fill) && !isPainted(item.stroke)))
            return std::nullopt;
        const double reach = isPainted(item.stroke) ? reachOf(item.strokeStyle) : 0;
        return box->grown(reach).mapped(item.transform);
    }
};

}  // namespace

std::optional<Rect> boxOf(const scene::Item& item) {
    return std::visit(BoxFinder(), item);
}

std::optional<Rect> boxOf(const scene::ItemList& list) {
    std::optional<Rect> all;
    for (const scene::Item& item : list.items)
        if (const auto box = boxOf(item))
            all = around(all, *box);
    return all;
}

double reachOf(const scene::StrokeStyle& style) {
    const double ofJoin = style.join == scene::Join::miter ? std::max(1.0, style.miterLimit) : 1;
    const double ofCap = style.cap == scene::Cap::square ? std::numbers::sqrt2 : 1;
    return style.width / 2 * std::max(ofJoin, ofCap);
}

}  // namespace psrender::plan
