#include "psrender/raster/module/Extent.h"

#include <algorithm>
#include <cstddef>

namespace psrender::raster {

namespace {

using scene::Affine;
using scene::Rect;

/// Gathers boxes for as long as all are known.
class ExtentFinder {
public:
    explicit ExtentFinder(const Affine& toPixels) : toPixels_(toPixels) {}

    void operator()(const scene::Shape& shape) {
        const auto box = shape.outline->controlBox();
        if (!box)
            return;
        const scene::StrokeStyle& style = shape.strokeStyle;
        const double reach =
            isPainted(shape.stroke) ? style.width * std::max(1.0, style.miterLimit) : 0.0;
        add(box->grown(reach).mapped(toPixels_ * shape.transform));
    }
    void operator()(const scene::Text& /*text*/) { isKnown_ = false; }
    void operator()(const scene::Picture& picture) {
        add(Rect{0, 0, 1, 1}.mapped(toPixels_ * picture.transform));
    }
    void operator()(const scene::Placement& placement) {
        ExtentFinder within(toPixels_ * placement.transform);
        for (const scene::Item& item : placement.symbol->items)
            std::visit(within, item);
        isKnown_ = isKnown_ && within.isKnown_;
        if (within.box_)
            add(*within.box_);
    }
    void operator()(const scene::BeginGroup& group) {
        isKnown_ = isKnown_ && !(group.effects && group.effects->filter);
    }
    void operator()(const scene::EndGroup& /*end*/) {}

    [[nodiscard]] std::optional<Rect> extent() const {
        return isKnown_ ? std::optional(box_.value_or(Rect())) : std::nullopt;
    }

private:
    void add(const Rect& box) { box_ = around(box_, box); }

    Affine toPixels_;
    std::optional<Rect> box_;
    bool isKnown_ = true;
};

}  // namespace

std::optional<Rect> extentOfGroup(const scene::Item* begin, const scene::Item* end,
                                  const Affine& toPixels) {
    ExtentFinder finder(toPixels);
    std::size_t depth = 0;
    for (const scene::Item* item = begin; item != end; ++item) {
        std::visit(finder, *item);
        if (std::holds_alternative<scene::BeginGroup>(*item))
            ++depth;
        else if (std::holds_alternative<scene::EndGroup>(*item) && --depth == 0)
            break;
    }
    return finder.extent();
}

}  // namespace psrender::raster
