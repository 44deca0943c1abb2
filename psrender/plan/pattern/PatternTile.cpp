#include "psrender/plan/pattern/PatternTile.h"

#include "psrender/plan/geometry/Box.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using scene::Affine;
using scene::Item;
using scene::ItemList;
using scene::Paint;
using scene::Rect;
using scene::Shape;

namespace {

constexpr double kLeastSide = 1e-3;  // points on the page
constexpr double kMostSide = 1e5;
constexpr int kMostNeighbours = 3;

bool isPlain(const Paint& paint) {
    return paint.kind == Paint::Kind::none || paint.kind == Paint::Kind::solid;
}

/// Whether a tile may hold `item`.
bool isTileable(const Item& item) {
    if (const auto* placement = std::get_if<scene::Placement>(&item))
        return std::ranges::all_of(placement->symbol->items, isTileable);
    if (const auto* shape = std::get_if<Shape>(&item))
        return isPlain(shape->fill) && isPlain(shape->stroke);
    return std::holds_alternative<scene::BeginGroup>(item) ||
           std::holds_alternative<scene::EndGroup>(item);
}

bool isShape(const Item& item) {
    return std::holds_alternative<Shape>(item);
}

/// How many tiles to either side are reached by what is `low` to `high` wide.
int reachOf(double low, double high, double step) {
    const double tiles = std::max({0.0, std::ceil(-low / step), std::ceil(high / step) - 1});
    return static_cast<int>(std::min<double>(tiles, kMostNeighbours));
}

/// Content that reaches into the neighbouring tiles, as one tile shows it: its own and theirs.
std::vector<Item> overlapping(const ItemList& content, const Rect& tile) {
    const Rect box = boxOf(content).value_or(Rect{});
    const int across = reachOf(box.x - tile.x, box.x + box.width - tile.x, tile.width);
    const int down = reachOf(box.y - tile.y, box.y + box.height - tile.y, tile.height);
    std::vector<Item> items;
    for (int row = -down; row <= down; ++row)
        for (int column = -across; column <= across; ++column) {
            ItemList copy = content;
            transform(copy, Affine::translation(column * tile.width, row * tile.height));
            std::ranges::move(copy.items, std::back_inserter(items));
        }
    return items;
}

}  // namespace

std::shared_ptr<const scene::Pattern> PatternTiles::tileFor(const scene::Pattern& pattern,
                                                            const Affine& toPage) {
    const double scale = std::exp2(std::ceil(std::log2((toPage * pattern.transform).meanScale())));
    const Rect& tile = pattern.tile;
    const Rect scaled{0, 0, tile.width * scale, tile.height * scale};
    if (!(std::min(scaled.width, scaled.height) > kLeastSide) ||
        !(std::max(scaled.width, scaled.height) < kMostSide))
        return nullptr;
    Known& known =
        known_[{pattern.content.get(), scale, tile.width, tile.height, pattern.isClipped}];
    if (!known.source)
        known = {pattern.content, contentFor(pattern, scale)};
    if (!known.content)
        return nullptr;
    auto result = std::make_shared<scene::Pattern>();
    result->tile = scaled;
    result->content = known.content;
    result->transform = pattern.transform * Affine::translation(tile.x, tile.y) *
                        Affine::scaling(1 / scale, 1 / scale);
    return result;
}

/// Planned at the size that it has on the page, as tolerances go by that.
std::shared_ptr<const ItemList> PatternTiles::contentFor(const scene::Pattern& pattern,
                                                         double scale) const {
    if (!std::ranges::all_of(pattern.content->items, isTileable))
        return nullptr;
    ItemList drawn;
    drawn.items =
        pattern.isClipped ? pattern.content->items : overlapping(*pattern.content, pattern.tile);
    transform(drawn, Affine::scaling(scale, scale) *
                         Affine::translation(-pattern.tile.x, -pattern.tile.y));
    auto content = std::make_shared<ItemList>();
    content->items = planAlone_(std::move(drawn.items));
    return std::ranges::all_of(content->items, isShape) ? content : nullptr;
}

}  // namespace psrender::plan
