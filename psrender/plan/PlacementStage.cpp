#include "psrender/plan/PlacementStage.h"

#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/Carried.h"
#include "psrender/plan/geometry/ItemBox.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using scene::Affine;
using scene::Item;
using scene::ItemList;
using scene::Placement;

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
        if (const auto* shape = std::get_if<scene::Shape>(&item))
            points += shape->outline->points().size();
        else if (!std::holds_alternative<scene::EndGroup>(item))
            points += kFewestPoints;
    return points;
}

/// An octave of the size on the page, as tolerances go by that.
double scaleOf(const Affine& map) {
    return std::exp2(std::ceil(std::log2(map.meanScale())));
}

}  // namespace

PlacementStage::PlacementStage(const ItemList& page, PlanAlone planAlone, Sink& next)
    : Stage(next), planAlone_(std::move(planAlone)) {
    countPlacements(page, counts_);
}

void PlacementStage::on(Placement placement) {
    if (isWorthIt(placement)) {
        if (const List& fragment = fragmentFor(placement); !fragment->items.empty())
            pass(Placement{fragment, placement.transform});
        return;
    }
    for (Item& item : itemsOf(placement))
        take(std::move(item));
}

bool PlacementStage::isWorthIt(const Placement& placement) const {
    const auto count = counts_.find(placement.symbol.get());
    if (count == counts_.end() || count->second < kFewestPlacements ||
        countPoints(*placement.symbol) < kFewestPoints || hasTranslucency(*placement.symbol) ||
        !placement.transform.isInvertible())
        return false;
    const auto box = boxOf(Item(placement));
    return box && kWithinReach.contains(*box);
}

const PlacementStage::List& PlacementStage::fragmentFor(const Placement& placement) {
    List& fragment = fragments_[placement.symbol.get()];
    if (fragment)
        return fragment;
    const double scale = scaleOf(placement.transform);
    ItemList drawn = *placement.symbol;
    transform(drawn, Affine::scaling(scale, scale));
    ItemList planned{planAlone_(std::move(drawn.items))};
    transform(planned, Affine::scaling(1 / scale, 1 / scale));
    return fragment = std::make_shared<const ItemList>(std::move(planned));
}

}  // namespace psrender::plan
