#include "psrender/plan/pattern/PatternStage.h"

#include "psrender/plan/Carried.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/gradient/GradientStage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

using scene::Affine;

using scene::ItemList;
using scene::Paint;
using scene::Rect;

template <class Painted>
void PatternStage::planPaints(Painted item) {
    if (item.fill.pattern() != nullptr || item.stroke.pattern() != nullptr) {
        item.fill = planned(item.fill, item.transform);
        item.stroke = planned(item.stroke, item.transform);
        if (!isPainted(item.fill) && !isPainted(item.stroke))
            return;
    }
    pass(std::move(item));
}

Paint PatternStage::planned(const Paint& paint, const Affine& toPage) {
    const scene::Pattern* pattern = paint.pattern();
    if (pattern == nullptr)
        return paint;
    const Rect& tile = pattern->tile;
    const bool hasSize =
        isSeen(toPage * pattern->transform * Affine::scaling(tile.width, tile.height));
    auto planned = hasSize ? tileFor(*pattern, toPage) : nullptr;
    if (!planned) {
        warnings_.add(hasSize ? "patterns with tiles too large or too small are left out"
                              : "gradients and patterns too small to be seen are left out");
        return {};
    }
    return {std::move(planned), paint.opacity};
}

std::shared_ptr<const scene::Pattern> PatternStage::tileFor(const scene::Pattern& pattern,
                                                            const Affine& toPage) {
    const double scale = std::exp2(std::ceil(std::log2((toPage * pattern.transform).meanScale())));
    const Rect& tile = pattern.tile;
    const Rect scaled{0, 0, tile.width * scale, tile.height * scale};
    if (!(std::min(scaled.width, scaled.height) > kLeastTile) ||
        !(std::max(scaled.width, scaled.height) < kMostTile))
        return nullptr;
    Known& known =
        known_[{pattern.content.get(), scale, tile.width, tile.height, pattern.isClipped}];
    if (!known.source)
        known = {pattern.content, contentFor(pattern, scale)};
    auto result = std::make_shared<scene::Pattern>();
    result->tile = scaled;
    result->isClipped = pattern.isClipped;
    result->bounds = boxOf(*known.content).value_or(scaled);
    result->content = known.content;
    result->transform = pattern.transform * Affine::translation(tile.x, tile.y) *
                        Affine::scaling(1 / scale, 1 / scale);
    return result;
}

std::shared_ptr<const ItemList> PatternStage::contentFor(const scene::Pattern& pattern,
                                                         double scale) const {
    ItemList drawn = *pattern.content;
    transform(drawn, Affine::scaling(scale, scale) *
                         Affine::translation(-pattern.tile.x, -pattern.tile.y));
    return std::make_shared<const ItemList>(ItemList{planAlone_(std::move(drawn.items))});
}

void PatternStage::on(scene::Shape shape) {
    planPaints(std::move(shape));
}

void PatternStage::on(scene::Text text) {
    planPaints(std::move(text));
}

}  // namespace psrender::plan
