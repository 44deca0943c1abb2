#include "psrender/plan/PlacementStage.h"

#include "psrender/plan/Carried.h"
#include "psrender/plan/blend/Translucency.h"
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

template <class Symbols>
void countPlacements(const ItemList& list, Symbols& symbols) {
    for (const Item& item : list.items)
        if (const auto* placement = std::get_if<Placement>(&item))
            if (++symbols[placement->symbol.get()].count == 1)
                countPlacements(*placement->symbol, symbols);
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
    countPlacements(page, symbols_);
}

void PlacementStage::on(Placement placement) {
    Known& known = symbols_[placement.symbol.get()];
    if (!known.isPlanned)
        plan(placement, known);
    const bool isWithin = known.box && placement.transform.isInvertible() &&
                          kWithinReach.contains(known.box->mapped(placement.transform));
    if (known.fragment && isWithin) {
        if (!known.fragment->items.empty())
            pass(Placement{known.fragment, placement.transform});
        return;
    }
    for (Item& item : itemsOf(placement))
        take(std::move(item));
}

void PlacementStage::plan(const Placement& placement, Known& known) const {
    const ItemList& symbol = *placement.symbol;
    known.isPlanned = true;
    known.box = boxOf(symbol);
    if (known.count < kFewestPlacements || countPoints(symbol) < kFewestPoints ||
        hasTranslucency(symbol) || !placement.transform.isInvertible())
        return;
    const double scale = scaleOf(placement.transform);
    ItemList drawn = symbol;
    transform(drawn, Affine::scaling(scale, scale));
    ItemList planned{planAlone_(std::move(drawn.items))};
    transform(planned, Affine::scaling(1 / scale, 1 / scale));
    known.fragment = std::make_shared<const ItemList>(std::move(planned));
}

}  // namespace psrender::plan
