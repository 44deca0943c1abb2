#include "psrender/plan/blend/BlendStage.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/blend/Backdrop.h"
#include "psrender/plan/blend/Translucency.h"
#include "psrender/plan/picture/PictureCrop.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace psrender::plan {

using scene::Item;
using scene::Picture;
using scene::Placement;

BlendStage::BlendStage(Budget& budget, Warnings& warnings, Sink& next)
    : Stage(next), budget_(budget), warnings_(warnings), clips_(chains_.none()) {
    levels_.push_back({BlendLayer(Tint()), 1, 0});
}

/// Opaque items go on in one piece.
void BlendStage::takePainted(Item item) {
    std::vector<BlendArea> areas = BlendArea::areasOf(item, clips_, budget_);
    const auto isOpaque = [](const BlendArea& area) { return area.appearance().isOpaque(); };
    if (!std::ranges::all_of(areas, isOpaque)) {
        for (const BlendArea& area : areas)
            hide(place(area, levels_.back().layer.size()));
        return;
    }
    for (BlendArea& area : areas)
        levels_.back().layer.add(std::move(area));
    if (!areas.empty())
        remember(std::move(item), areas.size());
}

/// What lies beneath a picture that is cut out is not hidden, nor is anything blended with it.
void BlendStage::on(Picture picture) {
    if (picture.isCutOut && isPage())
        remember(std::move(picture), 0);
    else
        takePicture(std::move(picture), clips_, levels_.back().layer.size());
}

/// On the page it becomes opaque.
void BlendStage::takePicture(Picture picture, ChainPtr clips, std::size_t beneath) {
    std::swap(clips_, clips);
    const bool isDone = isPage() && isTranslucent(picture) && placeInPieces(picture, beneath);
    if (!isDone) {
        if (isPage() && isTranslucent(picture))
            flatten(picture, beneath);
        takePainted(std::move(picture));
    }
    clips_ = std::move(clips);
}

bool BlendStage::placeInPieces(const Picture& picture, std::size_t beneath) {
    if (picture.image->hasAlpha())
        return false;
    BlendLayer& layer = levels_.back().layer;
    for (const BlendArea& area : BlendArea::areasOf(picture, clips_, budget_)) {
        auto mix = layer.mix(area.with(area.appearance().faded(picture.opacity)), beneath, budget_);
        const auto isEven = [](const BlendArea& piece) {
            return piece.appearance().tinted().has_value();
        };
        if (budget_.isSpent() || !std::ranges::all_of(mix.areas, isEven))
            return false;
        show(mix);
        hide(mix.hidden);
    }
    return true;
}

void BlendStage::flatten(Picture& picture, std::size_t beneath) {
    const BlendLayer& layer = levels_.back().layer;
    if (const ClipRegion* clip = clips_->region(budget_))
        cropTo(picture, clip->box());
    auto ground = backdropOf(layer, picture.transform,
                             picture.image->hasAlpha() ? layer.size() : beneath, budget_);
    picture.image = image::flattened(picture.image, picture.opacity, std::move(ground));
    picture.opacity = 1;
}

/// Symbols that are still placed are opaque.
void BlendStage::on(Placement placement) {
    const std::size_t count = addAreasOf(itemsOf(placement));
    remember(std::move(placement), count);
}

std::size_t BlendStage::addAreasOf(const std::vector<Item>& items) {
    std::size_t count = 0;
    std::vector<ChainPtr> chains{clips_};
    for (const Item& item : items)
        if (const auto* group = std::get_if<scene::BeginGroup>(&item)) {
            chains.push_back(chains_.within(*chains.back(), *group->clip));
        } else if (std::holds_alternative<scene::EndGroup>(item)) {
            chains.pop_back();
        } else if (const auto* inner = std::get_if<Placement>(&item)) {
            const ChainPtr around = std::exchange(clips_, chains.back());
            count += addAreasOf(itemsOf(*inner));
            clips_ = around;
        } else {
            for (BlendArea& area : BlendArea::areasOf(item, chains.back(), budget_)) {
                levels_.back().layer.add(std::move(area));
                ++count;
            }
        }
    return count;
}

void BlendStage::on(scene::BeginGroup group) {
    groups_.push_back({group.clip.has_value(), clips_});
    if (group.clip) {
        clips_ = chains_.within(*clips_, *group.clip);
        return;
    }
    constexpr Tint clear{{}, 0};
    const std::size_t beneath = levels_.back().layer.size();
    levels_.push_back({BlendLayer(clear), std::clamp(group.opacity, 0.0, 1.0), beneath});
}

void BlendStage::on(scene::EndGroup /*end*/) {
    if (groups_.empty())
        return;
    clips_ = groups_.back().around;
    if (!groups_.back().isClip)
        endLevel();
    groups_.pop_back();
}

/// The group's areas hide each other, and each of them lies over all that was there before.
void BlendStage::endLevel() {
    const Level group = std::move(levels_.back());
    levels_.pop_back();
    std::vector<std::size_t> hidden;
    for (std::size_t i = 0; i < group.layer.size(); ++i) {
        const BlendArea& area = group.layer[i];
        if (group.layer.isHidden(i))
            continue;
        if (const Picture* whole = area.picture()) {
            Picture picture = *whole;
            picture.opacity *= group.opacity;
            takePicture(std::move(picture), area.chain(), group.beneath);
            continue;
        }
        const auto more = place(area.with(area.appearance().faded(group.opacity)), group.beneath);
        hidden.insert(hidden.end(), more.begin(), more.end());
    }
    hide(hidden);
}

std::vector<std::size_t> BlendStage::place(const BlendArea& area, std::size_t beneath) {
    if (area.appearance().isClear())
        return {};
    const BlendLayer& layer = levels_.back().layer;
    BlendLayer::Mix mix{{area}, {}, 0};
    if (area.isText() && area.region(budget_) == nullptr)
        mix.areas = {area.with(
            over(area.appearance(), layer.appearanceAt(area.box().centre(), beneath, budget_)))};
    else if (!area.appearance().isOpaque())
        mix = layer.mix(area, beneath, budget_);
    for (std::size_t i = 0; i < mix.averages; ++i) {
        budget_.noteAverage();
        warnings_.add("patterns and changing colours are blended with an average colour");
    }
    if (budget_.isSpent())
        warnings_.add("translucent shapes are blended over white where there are too many");
    show(mix);
    return std::move(mix.hidden);
}

void BlendStage::show(BlendLayer::Mix& mix) {
    for (BlendArea& piece : mix.areas) {
        levels_.back().layer.add(std::move(piece));
        remember(std::nullopt, 1);
    }
}

void BlendStage::hide(const std::vector<std::size_t>& areas) {
    for (const std::size_t index : areas)
        levels_.back().layer.hide(index);
}

/// The areas are the last ones of the layer.
void BlendStage::remember(std::optional<Item> item, std::size_t countAreas) {
    if (!isPage())
        return;
    const std::size_t first = levels_.back().layer.size() - countAreas;
    entries_.push_back({std::move(item), clips_, first, countAreas});
}

bool BlendStage::isHidden(const Entry& entry) const {
    for (std::size_t i = 0; i < entry.countAreas; ++i)
        if (!levels_.front().layer.isHidden(entry.firstArea + i))
            return false;
    return entry.countAreas > 0;
}

void BlendStage::finish() {
    ClipGroups groups(next());
    Recoloring recoloring;
    for (Entry& entry : entries_) {
        if (isHidden(entry))
            continue;
        ClippedItem shown = entry.item
                                ? ClippedItem{entry.clips->clips(), std::move(*entry.item)}
                                : levels_.front().layer[entry.firstArea].shown(budget_, recoloring);
        groups.change(shown.clips);
        pass(std::move(shown.item));
    }
    groups.change({});
    Stage::finish();
}

}  // namespace psrender::plan
