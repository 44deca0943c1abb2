#include "psrender/plan/PlacementStage.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using scene::Affine;
using scene::Item;
using scene::ItemList;
using scene::Paint;
using scene::Placement;
using scene::Shape;

namespace {

/// Below these a fragment and its calls take more room than the shapes.
constexpr std::size_t kFewestPlacements = 3;
constexpr std::size_t kFewestPoints = 6;

void countPlacements(const ItemList& list,
                     std::unordered_map<const ItemList*, std::size_t>& counts) {
    for (const Item& item : list.items)
        if (const auto* placement = std::get_if<Placement>(&item))
            if (++counts[placement->symbol.get()] == 1)
                countPlacements(*placement->symbol, counts);
}

std::size_t countPoints(const ItemList& list) {
    std::size_t points = 0;
    for (const Item& item : list.items)
        if (const auto* shape = std::get_if<Shape>(&item))
            points += shape->outline->points().size();
        else if (std::holds_alternative<Placement>(item))
            points += kFewestPoints;
    return points;
}

bool isOpaque(const Paint& paint) {
    return paint.kind == Paint::Kind::none ||
           (paint.kind == Paint::Kind::solid && paint.opacity == 1);
}

/// Whether `item` looks the same in every place.
bool isSteadfast(const Item& item) {
    if (const auto* group = std::get_if<scene::BeginGroup>(&item))
        return group->opacity == 1;
    if (const auto* placement = std::get_if<Placement>(&item))
        return std::ranges::all_of(placement->symbol->items, isSteadfast);
    const auto* shape = std::get_if<Shape>(&item);
    return std::holds_alternative<scene::EndGroup>(item) ||
           (shape != nullptr && isOpaque(shape->fill) && isOpaque(shape->stroke));
}

/// Tolerances go by the size on the page: a symbol is planned once for each octave of it.
int octaveOf(const Placement& placement) {
    return static_cast<int>(std::ceil(std::log2(placement.transform.meanScale())));
}

}  // namespace

ItemList itemsOf(const Placement& placement) {
    ItemList list = *placement.symbol;
    transform(list, placement.transform);
    return list;
}

PlacementStage::PlacementStage(const ItemList& page, PlanAlone planAlone, Sink& next)
    : planAlone_(std::move(planAlone)), next_(next) {
    countPlacements(page, counts_);
}

void PlacementStage::take(Item item) {
    if (const auto* placement = std::get_if<Placement>(&item))
        place(*placement);
    else
        next_.take(std::move(item));
}

void PlacementStage::place(const Placement& placement) {
    const auto fragment = isWorthIt(placement) ? fragmentFor(placement) : nullptr;
    if (fragment)
        next_.take(Placement{fragment, placement.transform});
    else
        layOut(placement);
}

bool PlacementStage::isWorthIt(const Placement& placement) const {
    const auto count = counts_.find(placement.symbol.get());
    return count != counts_.end() && count->second >= kFewestPlacements &&
           countPoints(*placement.symbol) >= kFewestPoints;
}

std::shared_ptr<const ItemList> PlacementStage::fragmentFor(const Placement& placement) {
    const int octave = octaveOf(placement);
    const auto [entry, isNew] = fragments_.try_emplace({placement.symbol.get(), octave});
    if (isNew)
        entry->second = makeFragment(*placement.symbol, std::exp2(octave));
    return entry->second;
}

std::shared_ptr<const ItemList> PlacementStage::makeFragment(const ItemList& symbol,
                                                             double scale) const {
    if (!std::ranges::all_of(symbol.items, isSteadfast))
        return nullptr;
    ItemList drawn = symbol;
    transform(drawn, Affine::scaling(scale, scale));
    auto fragment = std::make_shared<ItemList>();
    fragment->items = planAlone_(std::move(drawn.items));
    const auto isShape = [](const Item& item) { return std::holds_alternative<Shape>(item); };
    if (fragment->items.empty() || !std::ranges::all_of(fragment->items, isShape))
        return nullptr;
    transform(*fragment, Affine::scaling(1 / scale, 1 / scale));
    return fragment;
}

void PlacementStage::layOut(const Placement& placement) {
    for (Item& item : itemsOf(placement).items)
        take(std::move(item));
}

}  // namespace psrender::plan
