#include "psrender/plan/blend/BlendArea.h"

#include "psrender/plan/TextBox.h"
#include "psrender/plan/TextOutlines.h"
#include "psrender/plan/blend/LookFit.h"
#include "psrender/plan/blend/Patchwork.h"
#include "psrender/plan/geometry/Boxes.h"
#include "psrender/plan/geometry/Seen.h"
#include "psrender/plan/gradient/GradientTile.h"

#include <algorithm>
#include <array>
#include <utility>

namespace psrender::plan {

using scene::Color;
using scene::Item;
using scene::Paint;
using scene::Picture;
using scene::Rect;
using scene::Shape;
using scene::Text;

namespace {

/// Shapes and texts are painted alike.
template <class Painted>
auto& paintOf(Painted& item) {
    return isPainted(item.fill) ? item.fill : item.stroke;
}

/// The average colour of the first shapes of a pattern.
Tint averageOf(const Paint& paint) {
    constexpr std::size_t kMost = 1000;
    const auto& items = paint.pattern->content->items;
    std::array<std::size_t, 3> sum{};
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::min(kMost, items.size()); ++i)
        if (const auto* shape = std::get_if<Shape>(&items[i])) {
            const Color& color = paintOf(*shape).color;
            sum[0] += color.red;
            sum[1] += color.green;
            sum[2] += color.blue;
            ++count;
        }
    const auto average = [&](std::size_t part) {
        return count == 0 ? std::uint8_t{255} : static_cast<std::uint8_t>(sum[part] / count);
    };
    return {{average(0), average(1), average(2)}, paint.opacity};
}

Look lookOf(const Paint& paint, const scene::Affine& toPage) {
    if (paint.kind == Paint::Kind::pattern)
        return Look(averageOf(paint));
    if (paint.kind != Paint::Kind::gradient)
        return Look(Tint{paint.color, paint.opacity});
    scene::Gradient gradient = *paint.gradient;
    gradient.transform = toPage * gradient.transform;
    if (!hasInverse(gradient.transform))
        return Look(Tint{{}, 0});
    return Look(PageGradient(std::move(gradient))).faded(paint.opacity);
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

Paint paintOf(const PageGradient& gradient) {
    Paint paint;
    paint.kind = Paint::Kind::gradient;
    paint.gradient = std::make_shared<const scene::Gradient>(gradient.gradient());
    return paint;
}

/// Patches are many, and their colours close to the look only: fewer bands are as good.
Paint inBands(const Paint& paint, const Rect& box) {
    constexpr double levels = 4;
    if (paint.kind != Paint::Kind::gradient)
        return paint;
    Paint result = paint;
    result.pattern = GradientTiles().tileFor(*paint.gradient, box, {}, levels);
    result.kind = result.pattern ? Paint::Kind::pattern : Paint::Kind::solid;
    result.gradient = nullptr;
    return result;
}

std::optional<Shape> shapeOf(const Item& item) {
    if (const auto* text = std::get_if<Text>(&item))
        return outlinesOf(*text);
    const auto* shape = std::get_if<Shape>(&item);
    return shape != nullptr ? std::optional(*shape) : std::nullopt;
}

std::optional<Rect> boxOf(const Item& item) {
    if (const auto* shape = std::get_if<Shape>(&item))
        return shape->transform.determinant() == 0 ? std::nullopt : paintedBox(*shape);
    if (const auto* text = std::get_if<Text>(&item))
        return textBox(*text);
    return mappedBox({0, 0, 1, 1}, std::get<Picture>(item).transform);
}

}  // namespace

std::vector<BlendArea> BlendArea::areasOf(const Item& item) {
    std::vector<Item> parts;
    if (const auto* shape = std::get_if<Shape>(&item))
        addParts(*shape, parts);
    else if (const auto* text = std::get_if<Text>(&item))
        addParts(*text, parts);
    else if (std::holds_alternative<Picture>(item))
        parts.push_back(item);
    std::vector<BlendArea> areas;
    for (Item& part : parts)
        if (const auto box = boxOf(part); box && contains(*box, *box))
            areas.push_back(BlendArea(std::move(part), *box));
    return areas;
}

BlendArea::BlendArea(Item item, const Rect& box)
    : item_(std::move(item)), box_(box), look_(Tint()) {
    if (const auto* picture = std::get_if<Picture>(&item_)) {
        look_ = Look(PageRaster(*picture));
        isKnown_ = false;
        return;
    }
    const auto* shape = std::get_if<Shape>(&item_);
    const Paint& paint = shape != nullptr ? paintOf(*shape) : paintOf(std::get<Text>(item_));
    look_ = lookOf(paint, shape != nullptr ? shape->transform : std::get<Text>(item_).transform);
    isKnown_ = paint.kind != Paint::Kind::pattern;
}

BlendArea::BlendArea(Polygons polygons, Look look) : look_(std::move(look)), isRegionKnown_(true) {
    Shape shape;
    shape.outline = std::make_shared<const scene::Outline>(outlineOf(polygons));
    shape.fill.kind = Paint::Kind::solid;
    item_ = std::move(shape);
    region_ = std::make_shared<const ClipRegion>(std::move(polygons));
    box_ = region_->box();
}

scene::Point BlendArea::middle() const {
    return {box_.x + box_.width / 2, box_.y + box_.height / 2};
}

const ClipRegion* BlendArea::region() const {
    if (isRegionKnown_)
        return region_.get();
    isRegionKnown_ = true;
    if (std::holds_alternative<Picture>(item_))
        region_ = std::make_shared<const ClipRegion>(box_);
    const auto shape = shapeOf(item_);
    if (!shape)
        return region_.get();
    auto area = isPainted(shape->fill) ? fillOf(*shape) : strokeOf(*shape, box_);
    auto simple = area ? simplify(std::move(area->polygons), area->rule) : std::nullopt;
    if (simple)
        region_ = std::make_shared<const ClipRegion>(std::move(*simple));
    return region_.get();
}

BlendArea BlendArea::with(const Look& look) const {
    BlendArea other = *this;
    other.look_ = look;
    return other;
}

std::vector<Item> BlendArea::items(BlendBudget& budget) const {
    if (!isKnown_)
        return {unknownItem()};
    if (const Tint* tint = look_.tint())
        return {solidItem(tint->color)};
    return patches(budget);
}

Item BlendArea::unknownItem() const {
    const double alpha = look_.at(middle())[3];
    Item item = item_;
    if (auto* picture = std::get_if<Picture>(&item)) {
        picture->opacity *= alpha;
        return item;
    }
    auto* shape = std::get_if<Shape>(&item);
    (shape != nullptr ? paintOf(*shape) : paintOf(std::get<Text>(item))).opacity = alpha;
    return item;
}

Item BlendArea::solidItem(const Color& color) const {
    Item item = item_;
    auto* shape = std::get_if<Shape>(&item);
    Paint& paint = shape != nullptr ? paintOf(*shape) : paintOf(std::get<Text>(item));
    paint = {Paint::Kind::solid, color};
    return item;
}

/// Only outlines take gradients, text does not.
Item BlendArea::wholeItem(const Paint& paint) const {
    auto shape = shapeOf(item_);
    if (!shape)
        return solidItem(colorOf(look_.at(middle())));
    paintOf(*shape) = moved(paint, shape->transform.inverse());
    return std::move(*shape);
}

std::vector<Item> BlendArea::patches(BlendBudget& budget) const {
    if (!BlendBudget::spend(budget.gradients, 1) || !budget.hasGradients())
        return {solidItem(colorOf(look_.at(middle())))};
    if (const PageGradient* gradient = look_.gradient())
        return {wholeItem(paintOf(*gradient))};
    if (region() == nullptr)
        return {wholeItem(fitTo(look_, box_, nullptr).paint)};
    const std::vector<Patch> patches = patchesOf(look_, region()->polygons(), budget);
    if (patches.size() == 1)
        return {wholeItem(patches[0].paint)};
    std::vector<Item> items;
    for (const Patch& patch : patches) {
        Shape shape;
        shape.outline = std::make_shared<const scene::Outline>(outlineOf(patch.area));
        shape.fill = inBands(patch.paint, *boxOf(patch.area));
        items.emplace_back(std::move(shape));
    }
    return items;
}

}  // namespace psrender::plan
