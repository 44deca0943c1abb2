#include "psrender/plan/blend/BlendLayer.h"

#include "psrender/plan/geometry/Boxes.h"
#include "psrender/plan/picture/PictureBlend.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace psrender::plan {

using scene::Rect;
using Place = ClipRegion::Place;

namespace {

constexpr std::size_t kBlock = 64;
/// So many corners are looked at in the time of one comparison of edges.
constexpr std::size_t kQuickCorners = 8;
/// Thinner than this is what rounding leaves, in grid units.
constexpr double kThinnest = 4;
/// Areas that hide less than this share of a box are not worth to be cut out of what is beneath.
constexpr double kWorthCutting = 1.0 / 16;

bool meets(const Rect& a, const Rect& b) {
    return a.x <= b.x + b.width && b.x <= a.x + a.width && a.y <= b.y + b.height &&
           b.y <= a.y + a.height;
}

double lengthOf(const ClipperLib::Path& polygon) {
    double length = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const auto& a = polygon[i];
        const auto& b = polygon[(i + 1) % polygon.size()];
        length += std::hypot(static_cast<double>(b.X - a.X), static_cast<double>(b.Y - a.Y));
    }
    return length;
}

void removeSlivers(Polygons& polygons) {
    std::erase_if(polygons, [](const ClipperLib::Path& polygon) {
        return std::abs(ClipperLib::Area(polygon)) < kThinnest * lengthOf(polygon) / 2;
    });
}

double areaOf(const Polygons& polygons) {
    double area = 0;
    for (const ClipperLib::Path& polygon : polygons)
        area += ClipperLib::Area(polygon);
    return std::abs(area);
}

/// Whether `part` of `whole` is all of it but for what rounding leaves.
bool coversAll(const Polygons& part, const Polygons& whole) {
    double length = 0;
    for (const ClipperLib::Path& polygon : whole)
        length += lengthOf(polygon);
    return areaOf(whole) - areaOf(part) < kThinnest * length / 2;
}

double areaOf(const Rect& box) {
    return box.width * box.height;
}

bool isRectangle(const ClipRegion& region) {
    return coversAll(region.polygons(), toPolygons(region.box()));
}

/// Looks from the top down for what shows through a translucent area.
class Walk {
public:
    Walk(const BlendArea& area, Look ground, BlendBudget& budget)
        : area_(area), ground_(std::move(ground)), budget_(budget) {}

    /// False if nothing shows from below `under`, which is `index` in the layer.
    bool goThrough(const BlendArea& under, std::size_t index) {
        index_ = index;
        const ClipRegion* hiding = under.region();
        if (hiding == nullptr)
            return goThroughWhole(under);
        const Place place = hiding->find(area_.box());
        if (place == Place::outside)
            return true;
        if (place == Place::inside)
            return reachGround(under);
        const ClipRegion* self = area_.region();
        if (self == nullptr || budget_.isSpent())
            return false;
        if (self->find(under.box()) == Place::outside)
            return true;
        std::size_t work = countCorners(self->polygons()) + countCorners(hiding->polygons());
        const bool goesOn = cut(under, *hiding, *self, work);
        BlendBudget::spend(budget_.work, work);
        return goesOn;
    }

    BlendLayer::Mix result() {
        std::vector<BlendArea> areas{area_.with(over(area_.look(), ground_))};
        std::ranges::reverse(pieces_);
        for (BlendArea& piece : pieces_)
            if (areas.size() > 1 || piece.look() != areas[0].look() || !piece.isKnown())
                areas.push_back(std::move(piece));
        return {std::move(areas), std::move(hidden_)};
    }

private:
    bool reachGround(const BlendArea& ground) {
        ground_ = seenOf(ground, area_.region());
        return false;
    }
    /// What cannot be cut shows through as a whole or not at all.
    bool goThroughWhole(const BlendArea& under) {
        const ClipRegion* self = area_.region();
        if (self != nullptr && self->contains(under.middle()))
            addPiece(under.with(over(area_.look(), under.look())));
        return true;
    }
    void addPiece(BlendArea piece) {
        pieces_.push_back(std::move(piece));
        BlendBudget::spend(budget_.pieces, 1);
    }
    bool cut(const BlendArea& under, const ClipRegion& hiding, const ClipRegion& self,
             std::size_t& work) {
        auto common = hiding.cut({rest_ ? *rest_ : self.polygons()}, &work);
        if (common)
            removeSlivers(*common);
        if (!common || common->empty())
            return true;
        if (rest_)
            common = hiding.cut({self.polygons()}, &work);
        const bool isWhole = self.find(under.box()) == Place::inside ||
                             (common && coversAll(*common, hiding.polygons()));
        if (isWhole)
            hidden_.push_back(index_);
        Look seen = under.look();
        if (under.isKnown() && isWhole)
            addPiece(under.with(over(area_.look(), seen)));
        else if (common && !common->empty()) {
            const ClipRegion region(std::move(*common));
            seen = seenOf(under, &region);
            addPiece({region.polygons(), over(area_.look(), seen)});
        }
        return !isWorthCutting(under.box()) || cutOut(hiding, self, seen, work);
    }
    /// The look that shows through at a place.
    Look seenOf(const BlendArea& under, const ClipRegion* where) {
        if (under.isKnown())
            return under.look();
        if (under.picture() == nullptr)
            ++budget_.averages;
        return addTinted(under, where) ? Look(under.look().average()) : under.look();
    }
    /// A picture beneath a rectangle is itself in other colours. What its whole pixels leave open
    /// at the border is not worth more than their average.
    bool addTinted(const BlendArea& under, const ClipRegion* where) {
        const Tint* tint = area_.look().tint();
        if (under.picture() == nullptr || tint == nullptr || where == nullptr ||
            !isRectangle(*where))
            return false;
        const auto part = tinted(*under.picture(), where->box(), *tint);
        if (part)
            for (BlendArea& piece : BlendArea::areasOf(*part))
                addPiece(std::move(piece));
        return part.has_value();
    }
    [[nodiscard]] bool isWorthCutting(const Rect& box) const {
        const auto common = commonBox(box, area_.box());
        return common && areaOf(*common) >= kWorthCutting * areaOf(area_.box());
    }
    /// If nothing is left, the lowest piece may be all of the area.
    bool cutOut(const ClipRegion& hiding, const ClipRegion& self, const Look& seen,
                std::size_t& work) {
        auto left = combine(ClipperLib::ctDifference, rest_ ? *rest_ : self.polygons(),
                            ClipperLib::pftNonZero, hiding.polygons(), &work);
        if (!left)
            return true;
        removeSlivers(*left);
        rest_ = std::move(left);
        if (!rest_->empty())
            return true;
        pieces_.pop_back();
        ground_ = seen;
        return false;
    }

    const BlendArea& area_;
    Look ground_;
    BlendBudget& budget_;
    std::size_t index_ = 0;
    std::optional<Polygons> rest_;   ///< where nothing has been found yet, once that is cut
    std::vector<BlendArea> pieces_;  ///< from the topmost down
    std::vector<std::size_t> hidden_;
};

}  // namespace

void BlendLayer::add(BlendArea area) {
    const Rect& box = area.box();
    if (areas_.size() % kBlock == 0)
        blockBoxes_.push_back(box);
    else
        blockBoxes_.back() = boxAround(blockBoxes_.back(), box);
    boxes_.push_back(box);
    isHidden_.push_back(false);
    areas_.push_back(std::move(area));
}

void BlendLayer::forEachIn(const Rect& box, std::size_t count, BlendBudget& budget,
                           const std::function<bool(std::size_t)>& visit) const {
    for (std::size_t block = (count + kBlock - 1) / kBlock; block-- > 0;) {
        if (!BlendBudget::spend(budget.steps, 1))
            return;
        if (!meets(box, blockBoxes_[block]))
            continue;
        const std::size_t first = block * kBlock;
        BlendBudget::spend(budget.steps, kBlock);
        for (std::size_t i = std::min(count, first + kBlock); i-- > first;)
            if (!isHidden_[i] && meets(box, boxes_[i]) && !visit(i))
                return;
    }
}

BlendLayer::Mix BlendLayer::mix(const BlendArea& area, std::size_t count,
                                BlendBudget& budget) const {
    Walk walk(area, ground_, budget);
    forEachIn(area.box(), count, budget,
              [&](std::size_t index) { return walk.goThrough(areas_[index], index); });
    if (budget.isSpent())
        return {{area.with(over(area.look(), ground_))}, {}};
    return walk.result();
}

Look BlendLayer::lookAt(scene::Point p, std::size_t count, BlendBudget& budget) const {
    Look look = ground_;
    forEachIn({p.x, p.y, 0, 0}, count, budget, [&](std::size_t index) {
        const BlendArea& area = areas_[index];
        const bool isThere = area.region() != nullptr && area.region()->contains(p);
        if (area.region() != nullptr)
            BlendBudget::spend(budget.work,
                               countCorners(area.region()->polygons()) / kQuickCorners);
        if (isThere)
            look = area.look();
        return !isThere;
    });
    return look;
}

}  // namespace psrender::plan
