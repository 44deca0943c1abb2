#include "psrender/plan/blend/BlendLayer.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace psrender::plan {

using scene::Rect;
using Place = ClipRegion::Place;

namespace {

constexpr std::size_t kBlock = 64;
/// So many corners, or boxes, are looked at in the time of one comparison of edges.
constexpr std::size_t kQuickCorners = 8;
/// What a piece costs in memory and bytes, in comparisons of edges.
constexpr std::size_t kPieceCost = 1'000;
/// Areas that hide less than this share of a box are not worth to be cut out of what is beneath.
constexpr double kWorthCutting = 1.0 / 16;

/// Looks from the top down for what shows through a translucent area.
class Descent {
public:
    Descent(const BlendArea& area, Appearance ground, Budget& budget)
        : area_(area), ground_(std::move(ground)), budget_(budget) {}

    /// False if nothing shows from below `under`, which is `index` in the layer.
    bool goThrough(const BlendArea& under, std::size_t index) {
        const ClipRegion* hiding = under.region(budget_);
        if (hiding == nullptr)
            return goThroughWhole(under);
        const Place place = hiding->find(area_.box());
        if (place == Place::outside)
            return true;
        if (place == Place::inside)
            return goThroughAll(under);
        const ClipRegion* self = area_.region(budget_);
        if (self == nullptr || budget_.isSpent())
            return false;
        if (self->find(under.box()) == Place::outside)
            return true;
        return cut(under, index, *hiding, *self);
    }

    BlendLayer::Mix result() {
        std::vector<BlendArea> areas{area_.with(mixed(area_.hasGaps(), ground_, false))};
        std::ranges::reverse(pieces_);
        for (BlendArea& piece : pieces_)
            if (areas.size() > 1 || !(piece.appearance() == areas[0].appearance()))
                areas.push_back(std::move(piece));
        if (area_.hasGaps())
            hidden_.clear();
        return {std::move(areas), std::move(hidden_), averages_};
    }

private:
    /// The area over something. Between a pattern and what changes from place to place the latter
    /// counts with its average.
    Appearance mixed(bool hasGaps, const Appearance& under, bool underHasGaps) {
        const Appearance& above = area_.appearance();
        if (hasGaps && under.tint() == nullptr) {
            ++averages_;
            return over(above, Appearance(under.average()));
        }
        if (underHasGaps && above.tint() == nullptr) {
            ++averages_;
            return over(Appearance(above.average()), under);
        }
        return over(above, under);
    }
    Appearance overIt(const BlendArea& under) {
        return mixed(area_.hasGaps(), under.appearance(), under.hasGaps());
    }
    /// All of the area lies over `under`.
    bool goThroughAll(const BlendArea& under) {
        if (under.hasGaps())
            addPiece(area_.with(overIt(under)));
        else
            ground_ = under.appearance();
        return under.hasGaps();
    }
    /// What cannot be cut shows through as a whole or not at all.
    bool goThroughWhole(const BlendArea& under) {
        const ClipRegion* self = area_.region(budget_);
        if (self != nullptr && self->contains(under.box().centre()))
            addPiece(under.with(overIt(under)));
        return true;
    }
    void addPiece(BlendArea piece) {
        pieces_.push_back(std::move(piece));
        budget_.spend(kPieceCost);
    }
    bool cut(const BlendArea& under, std::size_t index, const ClipRegion& hiding,
             const ClipRegion& self) {
        auto common = hiding.polygons().common(rest_ ? *rest_ : self.polygons(), budget_);
        if (common)
            common->removeSlivers();
        if (!common || common->empty())
            return true;
        if (rest_)
            common = hiding.polygons().common(self.polygons(), budget_);
        const bool isWhole = self.find(under.box()) == Place::inside ||
                             (common && common->isAllOf(hiding.polygons()));
        if (isWhole) {
            hidden_.push_back(index);
            addPiece(under.with(overIt(under)));
        } else if (common && !common->empty()) {
            addPiece({std::move(*common), overIt(under)});
        }
        return under.hasGaps() || !isWorthCutting(under.box()) ||
               cutOut(hiding, self, under.appearance());
    }
    [[nodiscard]] bool isWorthCutting(const Rect& box) const {
        const auto common = box.common(area_.box());
        return common && common->area() >= kWorthCutting * area_.box().area();
    }
    /// If nothing is left, the lowest piece may be all of the area.
    bool cutOut(const ClipRegion& hiding, const ClipRegion& self, const Appearance& seen) {
        auto left = (rest_ ? *rest_ : self.polygons()).without(hiding.polygons(), budget_);
        if (!left)
            return true;
        left->removeSlivers();
        rest_ = std::move(left);
        if (!rest_->empty())
            return true;
        pieces_.pop_back();
        ground_ = seen;
        return false;
    }

    const BlendArea& area_;
    Appearance ground_;
    Budget& budget_;
    std::optional<Polygons> rest_;   ///< where nothing has been found yet, once that is cut
    std::vector<BlendArea> pieces_;  ///< from the topmost down
    std::vector<std::size_t> hidden_;
    std::size_t averages_ = 0;
};

}  // namespace

void BlendLayer::add(BlendArea area) {
    const Rect& box = area.box();
    if (areas_.size() % kBlock == 0)
        blockBoxes_.push_back(box);
    else
        blockBoxes_.back() = blockBoxes_.back().around(box);
    boxes_.push_back(box);
    isHidden_.push_back(false);
    areas_.push_back(std::move(area));
}

void BlendLayer::forEachIn(const Rect& box, std::size_t count, Budget& budget,
                           const std::function<bool(std::size_t)>& visit) const {
    for (std::size_t block = (count + kBlock - 1) / kBlock; block-- > 0;) {
        if (!budget.spend(1))
            return;
        if (!box.meets(blockBoxes_[block]))
            continue;
        const std::size_t first = block * kBlock;
        budget.spend(kBlock / kQuickCorners);
        for (std::size_t i = std::min(count, first + kBlock); i-- > first;)
            if (!isHidden_[i] && box.meets(boxes_[i]) && !visit(i))
                return;
    }
}

BlendLayer::Mix BlendLayer::mix(const BlendArea& area, std::size_t count, Budget& budget) const {
    Descent descent(area, ground_, budget);
    forEachIn(area.box(), count, budget,
              [&](std::size_t index) { return descent.goThrough(areas_[index], index); });
    if (budget.isSpent())
        return {{area.with(over(area.appearance(), ground_))}, {}, 0};
    return descent.result();
}

Appearance BlendLayer::appearanceAt(scene::Point p, std::size_t count, Budget& budget) const {
    Appearance seen = ground_;
    forEachIn({p.x, p.y, 0, 0}, count, budget, [&](std::size_t index) {
        const BlendArea& area = areas_[index];
        const ClipRegion* region = area.region(budget);
        const bool isThere = region != nullptr && region->contains(p);
        if (region != nullptr)
            budget.spend(region->polygons().countCorners() / kQuickCorners);
        if (isThere)
            seen = area.appearance();
        return !isThere;
    });
    return seen;
}

}  // namespace psrender::plan
