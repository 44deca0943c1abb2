#include "psrender/plan/clip/ClipStage.h"

#include "psrender/plan/PlacementStage.h"
#include "psrender/plan/TextBox.h"
#include "psrender/plan/TextOutlines.h"
#include "psrender/plan/geometry/Boxes.h"
#include "psrender/plan/picture/PictureCrop.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <utility>

namespace psrender::plan {

using scene::Rect;
using scene::Shape;
using Place = ClipRegion::Place;

namespace {

/// Comparisons of edges in all cuts of a page: some ten seconds.
constexpr std::size_t kMostWork = 400'000'000;

}  // namespace

void ClipStage::take(scene::Item item) {
    if (auto* group = std::get_if<scene::BeginGroup>(&item))
        begin(std::move(*group));
    else if (std::holds_alternative<scene::EndGroup>(item))
        end();
    else if (regions_.empty())
        next_.take(std::move(item));
    else if (auto* shape = std::get_if<Shape>(&item))
        takeShape(std::move(*shape));
    else if (auto* text = std::get_if<scene::Text>(&item))
        takeText(std::move(*text));
    else if (const auto* picture = std::get_if<scene::Picture>(&item))
        takePicture(*picture);
    else if (auto* placement = std::get_if<scene::Placement>(&item))
        takePlacement(std::move(*placement));
}

void ClipStage::begin(scene::BeginGroup group) {
    groups_.push_back({group.clip.has_value(), group.opacity != 1});
    if (group.clip) {
        ClipRegion clip = areas_.regionOf(*group.clip);
        regions_.push_back(regions_.empty() ? std::move(clip) : clip.within(region()));
        group.clip.reset();
    }
    if (groups_.back().isPassed)
        next_.take(std::move(group));
}

void ClipStage::end() {
    if (groups_.empty())
        return;
    const Group group = groups_.back();
    groups_.pop_back();
    if (group.isClipped)
        regions_.pop_back();
    if (group.isPassed)
        next_.take(scene::EndGroup());
}

void ClipStage::takeShape(Shape shape) {
    const auto box = paintedBox(shape);
    if (!box || shape.transform.determinant() == 0)
        return;
    const Place place = region().find(*box);
    if (place == Place::inside) {
        next_.take(std::move(shape));
        return;
    }
    if (place != Place::across)
        return;
    if (work_ > kMostWork) {
        passByMiddle(std::move(shape), *box);
        return;
    }
    if (isPainted(shape.fill))
        passPart(shape, fillOf(shape), false);
    if (isPainted(shape.stroke))
        passPart(shape, strokeOf(shape, region().box()), true);
}

void ClipStage::passPart(const Shape& shape, std::optional<Silhouette> area, bool isStroke) {
    Shape part = shape;
    (isStroke ? part.fill : part.stroke) = {};
    if (area)
        work_ += countCorners(area->polygons) + countCorners(region().polygons());
    const auto rest = area ? region().cut(std::move(*area), &work_) : std::nullopt;
    if (!rest) {
        passByMiddle(part, *paintedBox(part));
        return;
    }
    if (rest->empty())
        return;
    part.outline = std::make_shared<scene::Outline>(outlineOf(*rest, shape.transform.inverse()));
    part.fill = isStroke ? part.stroke : part.fill;
    part.fillRule = scene::FillRule::nonZero;
    part.stroke = {};
    next_.take(std::move(part));
}

void ClipStage::passByMiddle(scene::Item item, const Rect& box) {
    warnings_.add("shapes with too many crossings are not cut at their clips");
    if (region().contains({box.x + box.width / 2, box.y + box.height / 2}))
        next_.take(std::move(item));
}

void ClipStage::takeText(scene::Text text) {
    const auto box = textBox(text);
    const Place place = box ? region().find(*box) : Place::outside;
    if (place == Place::inside)
        next_.take(std::move(text));
    else if (auto outlines = place == Place::across ? outlinesOf(text) : std::nullopt)
        takeShape(std::move(*outlines));
    else if (place == Place::across)
        passByMiddle(std::move(text), *box);
}

/// Cropped to whole pixels, so that one at the border may stick out.
void ClipStage::takePicture(const scene::Picture& picture) {
    const Rect box = mappedBox({0, 0, 1, 1}, picture.transform);
    const Place place = region().find(box);
    if (place == Place::inside)
        next_.take(picture);
    if (place != Place::across || picture.transform.determinant() == 0)
        return;
    if (!region().isRectangle() || !isUpright(picture.transform))
        warnings_.add("images are cropped to the box of their clip");
    if (auto part = croppedTo(picture, region().box(), Border::inside))
        next_.take(std::move(*part));
}

void ClipStage::takePlacement(scene::Placement placement) {
    scene::ItemList items = itemsOf(placement);
    std::optional<Rect> box;
    for (const scene::Item& item : items.items)
        if (const auto* shape = std::get_if<Shape>(&item))
            if (const auto part = paintedBox(*shape))
                box = box ? boxAround(*box, *part) : *part;
    if (box && region().find(*box) == Place::inside)
        next_.take(std::move(placement));
    else
        for (scene::Item& item : items.items)
            take(std::move(item));
}

}  // namespace psrender::plan
