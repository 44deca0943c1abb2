#include "psrender/plan/effect/EffectSearch.h"

#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/gradient/Cone.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace psrender::plan {

using scene::Item;
using scene::Rect;

namespace {

/// Looks into every symbol once.
class Search {
public:
    explicit Search(bool countsPictures) : countsPictures_(countsPictures) {}

    bool find(const std::vector<Item>& items) {
        return std::ranges::any_of(items, [this](const Item& item) { return isHit(item); });
    }

private:
    bool isHit(const Item& item) {
        if (const auto* group = std::get_if<scene::BeginGroup>(&item))
            return group->effects != nullptr;
        if (const auto* picture = std::get_if<scene::Picture>(&item))
            return countsPictures_ && picture->image->hasAlpha();
        if (hasCone(item))
            return true;
        const auto* placement = std::get_if<scene::Placement>(&item);
        return placement != nullptr && seen_.insert(placement->symbol.get()).second &&
               find(placement->symbol->items);
    }

    bool countsPictures_;
    std::unordered_set<const scene::ItemList*> seen_;
};

}  // namespace

bool mayNeedPixels(const scene::ItemList& list) {
    return Search(true).find(list.items);
}

bool hasEffects(const std::vector<Item>& items) {
    return Search(false).find(items);
}

EffectLoad loadOf(const std::vector<Item>& items) {
    EffectLoad load;
    for (const Item& item : items) {
        const auto* group = std::get_if<scene::BeginGroup>(&item);
        const auto* picture = std::get_if<scene::Picture>(&item);
        if (group != nullptr && group->effects) {
            ++load.pictures;
            if (const auto& filter = group->effects->filter)
                load.filteredArea += filter->region.mapped(filter->transform).area();
        } else if (picture != nullptr && picture->image->hasAlpha()) {
            ++load.pictures;
        } else if (const auto* placement = std::get_if<scene::Placement>(&item)) {
            const EffectLoad within = loadOf(placement->symbol->items);
            load.pictures += within.pictures;
            load.filteredArea += within.filteredArea * std::abs(placement->transform.determinant());
        }
    }
    return load;
}

bool goesByPixels(const std::vector<Item>& items) {
    return std::ranges::any_of(items, [](const Item& item) {
        const auto* group = std::get_if<scene::BeginGroup>(&item);
        return group != nullptr && group->effects && group->effects->filter &&
               group->effects->filter->goesByPixels;
    });
}

std::optional<Rect> boxWithEffects(const std::vector<Item>& items) {
    std::optional<Rect> all;
    for (const Item& item : items) {
        const auto* group = std::get_if<scene::BeginGroup>(&item);
        if (group != nullptr && group->effects && group->effects->filter)
            all = around(all,
                         group->effects->filter->region.mapped(group->effects->filter->transform));
        else if (const auto box = boxOf(item))
            all = around(all, *box);
    }
    return all;
}

}  // namespace psrender::plan
