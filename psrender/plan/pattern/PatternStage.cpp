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

namespace {

constexpr int kMostNeighbours = 3;

/// How many tiles to either side are reached by what is `low` to `high` wide.
int reachOf(double low, double high, double step) {
    const double tiles = std::max({0.0, std::ceil(-low / step), std::ceil(high / step) - 1});
    return static_cast<int>(std::min<double>(tiles, kMostNeighbours));
}

/// Content that reaches into the neighbouring tiles, as one tile shows it: its own and theirs.
/// Interpreters paint tiles that overlap each other in ways of their own.
std::vector<scene::Item> overlapping(const ItemList& content, const Rect& tile) {
    const Rect box = boxOf(content).value_or(Rect{});
    const int across = reachOf(box.x - tile.x, box.right() - tile.x, tile.width);
    const int down = reachOf(box.y - tile.y, box.bottom() - tile.y, tile.height);
    std::vector<scene::Item> items;
    for (int row = -down; row <= down; ++row)
        for (int column = -across; column <= across; ++column) {
            ItemList copy = content;
            transform(copy, Affine::translation(column * tile.width, row * tile.height));
            std::ranges::move(copy.items, std::back_inserter(items));
        }
    return items;
}

}  // namespace

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
    result->content = known.content;
    result->transform = pattern.transform * Affine::translation(tile.x, tile.y) *
                        Affine::scaling(1 / scale, 1 / scale);
    return result;
}

std::shared_ptr<const ItemList> PatternStage::contentFor(const scene::Pattern& pattern,
                                                         double scale) const {
    ItemList drawn{pattern.isClipped ? pattern.content->items
                                     : overlapping(*pattern.content, pattern.tile)};
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
