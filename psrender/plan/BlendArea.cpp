#include "psrender/plan/BlendArea.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/Boxes.h"
#include "psrender/plan/TextBox.h"
#include "psrender/plan/TextOutlines.h"

#include <algorithm>
#include <array>
#include <cmath>
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

/// The colours of the first shapes of a pattern.
void addColors(const scene::Pattern& pattern, std::vector<Color>& colors) {
    constexpr std::size_t kMost = 1000;
    const auto& items = pattern.content->items;
    for (std::size_t i = 0; i < std::min(kMost, items.size()); ++i)
        if (const auto* shape = std::get_if<Shape>(&items[i]))
            colors.push_back(paintOf(*shape).color);
}

/// Gradients may come as patterns of bands, so the colours in a pattern count alike.
std::vector<Color> colorsOf(const Paint& paint) {
    std::vector<Color> colors;
    if (paint.kind == Paint::Kind::pattern)
        addColors(*paint.pattern, colors);
    else if (paint.kind == Paint::Kind::solid)
        colors.push_back(paint.color);
    else
        for (const scene::ColorStop& stop : *paint.gradient->stops)
            colors.push_back(stop.color);
    return colors;
}

Tint tintOf(const Paint& paint) {
    const std::vector<Color> colors = colorsOf(paint);
    if (colors.empty())
        return {{255, 255, 255}, paint.opacity};
    const auto average = [&colors](std::uint8_t Color::*part) {
        std::size_t sum = 0;
        for (const Color& color : colors)
            sum += color.*part;
        return static_cast<std::uint8_t>(sum / colors.size());
    };
    return {{average(&Color::red), average(&Color::green), average(&Color::blue)}, paint.opacity};
}

/// The average over white.
Tint tintOf(const Picture& picture) {
    const auto image = image::rowsOf(
        image::flattened(image::reduced(picture.image, {1, 1}), picture.opacity, {255, 255, 255}));
    std::array<std::uint8_t, 8> pixel{};
    std::array<std::uint8_t, 1> alpha{};
    if (image->components() > 3)
        return {{128, 128, 128}};
    image->readRows(0, 1, pixel.data(), alpha.data());
    const bool isGray = image->components() < 3;
    return {{pixel[0], pixel[isGray ? 0 : 1], pixel[isGray ? 0 : 2]}};
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

Tint over(const Tint& above, const Tint& below) {
    const double seen = below.alpha * (1 - above.alpha);
    const double alpha = above.alpha + seen;
    if (!(alpha > 0))
        return {above.color, 0};
    const auto mix = [&](std::uint8_t upper, std::uint8_t lower) {
        return static_cast<std::uint8_t>(std::lround((upper * above.alpha + lower * seen) / alpha));
    };
    return {{mix(above.color.red, below.color.red), mix(above.color.green, below.color.green),
             mix(above.color.blue, below.color.blue)},
            alpha};
}

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

BlendArea::BlendArea(Item item, const Rect& box) : item_(std::move(item)), box_(box) {
    if (const auto* picture = std::get_if<Picture>(&item_)) {
        tint_ = tintOf(*picture);
        isSolid_ = false;
        return;
    }
    auto* shape = std::get_if<Shape>(&item_);
    const Paint& paint = shape != nullptr ? paintOf(*shape) : paintOf(std::get<Text>(item_));
    tint_ = tintOf(paint);
    isSolid_ = paint.kind == Paint::Kind::solid;
}

BlendArea::BlendArea(Polygons polygons, const Tint& tint) : tint_(tint), isRegionKnown_(true) {
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

BlendArea BlendArea::with(const Tint& tint) const {
    BlendArea other = *this;
    other.tint_ = isSolid_ ? tint : Tint{tint_.color, tint.alpha};
    return other;
}

Item BlendArea::item() const {
    Item item = item_;
    if (auto* picture = std::get_if<Picture>(&item)) {
        picture->opacity *= tint_.alpha;
        return item;
    }
    auto* shape = std::get_if<Shape>(&item);
    Paint& paint = shape != nullptr ? paintOf(*shape) : paintOf(std::get<Text>(item));
    paint.opacity = tint_.alpha;
    if (isSolid_)
        paint.color = tint_.color;
    return item;
}

}  // namespace psrender::plan
