#include "psrender/plan/blend/BlendStage.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/PlacementStage.h"
#include "psrender/plan/picture/PictureBlend.h"

#include <algorithm>
#include <memory>
#include <unordered_set>
#include <utility>

namespace psrender::plan {

using scene::Item;
using scene::ItemList;
using scene::Paint;
using scene::Picture;
using scene::Placement;

namespace {

bool isTranslucent(const Paint& paint) {
    const auto isThin = [](const scene::ColorStop& stop) { return stop.opacity < 1; };
    return isPainted(paint) &&
           (paint.opacity < 1 || (paint.kind == Paint::Kind::gradient &&
                                  std::ranges::any_of(*paint.gradient->stops, isThin)));
}

bool isTranslucent(const Picture& picture) {
    return picture.opacity < 1 || picture.image->hasAlpha();
}

/// Looks into every symbol once.
class Search {
public:
    bool find(const ItemList& list) {
        return std::ranges::any_of(list.items,
                                   [this](const Item& item) { return std::visit(*this, item); });
    }

    template <class Painted>
    bool operator()(const Painted& item) {
        return isThere(item.fill) || isThere(item.stroke);
    }
    bool operator()(const scene::BeginGroup& group) { return group.opacity < 1; }
    bool operator()(const scene::EndGroup& /*end*/) { return false; }
    bool operator()(const scene::Picture& picture) { return isTranslucent(picture); }
    bool operator()(const Placement& placement) { return isIn(placement.symbol); }

private:
    bool isThere(const Paint& paint) {
        return isTranslucent(paint) || (paint.pattern && isIn(paint.pattern->content));
    }
    bool isIn(const std::shared_ptr<const ItemList>& list) {
        return seen_.insert(list.get()).second && find(*list);
    }

    std::unordered_set<const ItemList*> seen_;
};

}  // namespace

bool hasTranslucency(const ItemList& list) {
    return Search().find(list);
}

void BlendStage::take(Item item) {
    if (const auto* group = std::get_if<scene::BeginGroup>(&item))
        begin(group->opacity);
    else if (std::holds_alternative<scene::EndGroup>(item))
        end();
    else if (const auto* placement = std::get_if<Placement>(&item))
        takePlacement(*placement);
    else
        takePainted(std::move(item));
}

/// Opaque items go on in one piece.
void BlendStage::takePainted(Item item) {
    if (auto* picture = std::get_if<Picture>(&item); picture != nullptr && isPage())
        flatten(*picture, levels_.back().layer.size());
    std::vector<BlendArea> areas = BlendArea::areasOf(item);
    const auto isOpaque = [](const BlendArea& area) { return area.look().isOpaque(); };
    if (!std::ranges::all_of(areas, isOpaque)) {
        for (const BlendArea& area : areas)
            hide(place(area, levels_.back().layer.size()));
        return;
    }
    const std::size_t count = areas.size();
    for (BlendArea& area : areas)
        add(std::move(area));
    remember(std::move(item), count);
}

void BlendStage::flatten(Picture& picture, std::size_t beneath) {
    if (!isTranslucent(picture))
        return;
    picture.image =
        image::flattened(picture.image, picture.opacity,
                         backdropOf(levels_.back().layer, picture.transform, beneath, budget_));
    picture.opacity = 1;
}

/// Symbols that are still placed are opaque.
void BlendStage::takePlacement(const Placement& placement) {
    std::size_t count = 0;
    for (const Item& item : itemsOf(placement).items)
        for (BlendArea& area : BlendArea::areasOf(item)) {
            add(std::move(area));
            ++count;
        }
    remember(placement, count);
}

void BlendStage::begin(double opacity) {
    constexpr Tint clear{{}, 0};
    const std::size_t beneath = levels_.back().layer.size();
    levels_.push_back({BlendLayer(clear), std::clamp(opacity, 0.0, 1.0), beneath});
}

/// The group's areas hide each other, and each of them lies over all that was there before.
void BlendStage::end() {
    if (isPage())
        return;
    const Level group = std::move(levels_.back());
    levels_.pop_back();
    std::vector<std::size_t> hidden;
    for (std::size_t i = 0; i < group.layer.size(); ++i) {
        const BlendArea& area = group.layer[i];
        if (group.layer.isHidden(i))
            continue;
        const auto more = place(area.with(area.look().faded(group.opacity)), group.beneath);
        hidden.insert(hidden.end(), more.begin(), more.end());
    }
    hide(hidden);
}

std::vector<std::size_t> BlendStage::place(const BlendArea& area, std::size_t beneath) {
    if (area.look().isClear())
        return {};
    const BlendLayer& layer = levels_.back().layer;
    if (area.picture() != nullptr && isPage()) {
        auto picture = std::get<Picture>(area.items(budget_).front());
        flatten(picture, picture.image->hasAlpha() ? layer.size() : beneath);
        takePainted(std::move(picture));
        return {};
    }
    BlendLayer::Mix mix{{area}, {}};
    if (area.isText() && area.region() == nullptr)
        mix.areas = {area.with(over(area.look(), layer.lookAt(area.middle(), beneath, budget_)))};
    else if (area.isKnown() && !area.look().isOpaque())
        mix = layer.mix(area, beneath, budget_);
    for (; budget_.averages > 0; --budget_.averages)
        warnings_.add("translucent shapes over patterns are blended with an average colour");
    if (budget_.isSpent())
        warnings_.add("translucent shapes are blended over white where there are too many");
    for (BlendArea& piece : mix.areas) {
        add(std::move(piece));
        remember(std::nullopt, 1);
    }
    return std::move(mix.hidden);
}

void BlendStage::hide(const std::vector<std::size_t>& areas) {
    for (const std::size_t index : areas)
        levels_.back().layer.hide(index);
}

void BlendStage::add(BlendArea area) {
    levels_.back().layer.add(std::move(area));
}

/// The areas are the last ones of the layer.
void BlendStage::remember(std::optional<Item> item, std::size_t countAreas) {
    if (isPage())
        entries_.push_back({std::move(item), levels_.back().layer.size() - countAreas, countAreas});
}

bool BlendStage::isHidden(const Entry& entry) const {
    for (std::size_t i = 0; i < entry.countAreas; ++i)
        if (!levels_.front().layer.isHidden(entry.firstArea + i))
            return false;
    return entry.countAreas > 0;
}

void BlendStage::finish() {
    for (Entry& entry : entries_) {
        if (isHidden(entry))
            continue;
        if (entry.item)
            next_.take(std::move(*entry.item));
        else
            show(levels_.front().layer[entry.firstArea]);
    }
}

void BlendStage::show(const BlendArea& area) {
    for (Item& item : area.items(budget_))
        next_.take(std::move(item));
    if (!budget_.hasGradients())
        warnings_.add("translucent gradients are shown in one colour where there are too many");
}

}  // namespace psrender::plan
