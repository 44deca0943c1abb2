#include "psrender/plan/blend/BlendArea.h"

#include "psrender/plan/TextOutlines.h"
#include "psrender/plan/blend/FieldSampling.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/geometry/Silhouette.h"
#include "psrender/plan/picture/TintedPicture.h"

#include <utility>

namespace psrender::plan {

using scene::Item;
using scene::Paint;
using scene::Picture;
using scene::Rect;
using scene::Shape;
using scene::Text;

namespace {

constexpr Tint kClear{{}, 0};

Appearance appearanceOf(const Paint& paint, const scene::Affine& toPage) {
    if (const scene::Color* color = paint.color())
        return Appearance(Tint{*color, paint.opacity});
    const Paint onPage = moved(paint, toPage);
    if (onPage.pattern() != nullptr)
        return Appearance(patternLayer({onPage.source})).faded(paint.opacity);
    if (onPage.gradient() == nullptr || !onPage.gradient()->transform.isInvertible())
        return Appearance(kClear);
    return Appearance(gradientLayer(PageGradient(*onPage.gradient()))).faded(paint.opacity);
}

Appearance appearanceOf(const Item& item) {
    if (const auto* picture = std::get_if<Picture>(&item))
        return Appearance(pictureLayer(*picture));
    return appearanceOf(*paintOf(item), *transformOf(item));
}

template <class Painted>
void addParts(const Painted& item, std::vector<Item>& parts) {
    for (const bool isFill : {true, false})
        if (isPainted(isFill ? item.fill : item.stroke)) {
            Painted part = item;
            (isFill ? part.stroke : part.fill) = {};
            parts.emplace_back(std::move(part));
        }
}

/// The outline that an item covers: that of its glyphs, or the border of a picture.
std::optional<Shape> shapeOf(const Item& item) {
    if (const auto* text = std::get_if<Text>(&item))
        return outlinesOf(*text);
    if (const auto* shape = std::get_if<Shape>(&item))
        return *shape;
    Shape border;
    border.outline =
        std::make_shared<const scene::Outline>(scene::Outline::rectangle({0, 0, 1, 1}));
    border.fill = {scene::Color()};
    border.transform = std::get<Picture>(item).transform;
    return border;
}

}  // namespace

std::vector<BlendArea> BlendArea::areasOf(const Item& item, const ChainPtr& clips, Budget& budget) {
    std::vector<Item> parts;
    if (const auto* shape = std::get_if<Shape>(&item))
        addParts(*shape, parts);
    else if (const auto* text = std::get_if<Text>(&item))
        addParts(*text, parts);
    else if (std::holds_alternative<Picture>(item))
        parts.push_back(item);
    const ClipRegion* clip = clips->region(budget);
    std::vector<BlendArea> areas;
    for (Item& part : parts) {
        auto box = boxOf(part);
        if (box && box->contains(*box) && clip != nullptr)
            box = box->common(clip->box());
        const bool isThere = box && box->contains(*box);
        if (isThere && transformOf(part)->determinant() != 0)
            areas.push_back(BlendArea(std::move(part), *box, clips));
    }
    return areas;
}

BlendArea::BlendArea(Item item, const Rect& box, ChainPtr clips)
    : item_(std::move(item)),
      chain_(std::move(clips)),
      box_(box),
      appearance_(appearanceOf(item_)) {
    const Paint* paint = paintOf(item_);
    hasGaps_ = paint != nullptr && paint->pattern() != nullptr;
}

BlendArea::BlendArea(Polygons polygons, Appearance appearance)
    : chain_(std::make_shared<const ClipChain>(Clips())),
      appearance_(std::move(appearance)),
      isRegionKnown_(true) {
    Shape shape;
    shape.outline = std::make_shared<const scene::Outline>(polygons.outline());
    shape.fill = {scene::Color()};
    item_ = std::move(shape);
    region_ = std::make_shared<const ClipRegion>(std::move(polygons));
    box_ = region_->box();
}

const Picture* BlendArea::picture() const {
    const auto tinted = appearance_.tinted();
    return tinted && tinted->tint.alpha == 0 ? std::get_if<Picture>(&item_) : nullptr;
}

const ClipRegion* BlendArea::region(Budget& budget) const {
    if (!std::exchange(isRegionKnown_, true))
        if (auto region = findRegion(budget))
            region_ = std::make_shared<const ClipRegion>(std::move(*region));
    return region_.get();
}

std::optional<ClipRegion> BlendArea::findRegion(Budget& budget) const {
    const auto shape = shapeOf(item_);
    if (!shape)
        return std::nullopt;
    auto area =
        isPainted(shape->fill) ? fillArea(*shape, budget) : strokeArea(*shape, box_, budget);
    const ClipRegion* clip = chain_->region(budget);
    if (area && clip != nullptr &&
        clip->find(area->box().value_or(box_)) != ClipRegion::Place::inside)
        area = area->common(clip->polygons(), budget);
    return area ? std::optional(ClipRegion(std::move(*area))) : std::nullopt;
}

BlendArea BlendArea::with(Appearance appearance) const {
    BlendArea other = *this;
    other.appearance_ = std::move(appearance);
    return other;
}

ClippedItem BlendArea::shown(Budget& budget, Recoloring& recoloring) const {
    const auto tinted = appearance_.tinted();
    if (tinted && tinted->original->picture() != nullptr)
        return shownPicture(*tinted, budget);
    ClippedItem result{chain_->clips(), item_};
    const Paint own = moved(paint(budget, recoloring), transformOf(result.item)->inverse());
    if (auto* shape = std::get_if<Shape>(&result.item))
        paintOf(*shape) = own;
    else if (auto* text = std::get_if<Text>(&result.item))
        paintOf(*text) = own;
    return result;
}

/// A picture seen through another area is clipped to that.
ClippedItem BlendArea::shownPicture(const Appearance::Tinted& seen, Budget& budget) const {
    Picture picture = *seen.original->picture();
    picture.image = tinted(picture.image, seen.tint);
    Clips clips = chain_->clips();
    if (std::holds_alternative<Picture>(item_))
        return {std::move(clips), std::move(picture)};
    const auto* shape = std::get_if<Shape>(&item_);
    if (shape != nullptr && isPainted(shape->fill)) {
        clips.push_back(clipTo(*shape));
    } else if (const ClipRegion* area = region(budget)) {
        Shape border;
        border.outline = std::make_shared<const scene::Outline>(area->polygons().outline());
        clips = {clipTo(std::move(border))};
    }
    return {std::move(clips), std::move(picture)};
}

Paint BlendArea::paint(Budget& budget, Recoloring& recoloring) const {
    if (const Tint* tint = appearance_.tint())
        return {tint->color};
    if (const PageGradient* gradient = appearance_.gradient())
        return {std::make_shared<const scene::Gradient>(gradient->gradient())};
    if (const auto tinted = appearance_.tinted())
        return recoloring.beneath(tinted->tint, *tinted->original->pattern());
    return fieldOf(appearance_, box_, budget);
}

}  // namespace psrender::plan
