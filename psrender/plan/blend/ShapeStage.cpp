#include "psrender/plan/blend/ShapeStage.h"

#include "psrender/image/DerivedImages.h"
#include "psrender/plan/geometry/DashWalk.h"
#include "psrender/plan/geometry/FillRule.h"
#include "psrender/plan/geometry/Joins.h"
#include "psrender/plan/geometry/Range.h"

#include <utility>

namespace psrender::plan {

using scene::Shape;

namespace {

constexpr scene::Color kPaper{255, 255, 255};

}  // namespace

void ShapeStage::take(scene::Item item) {
    if (auto* shape = std::get_if<Shape>(&item))
        takeShape(std::move(*shape));
    else if (auto* picture = std::get_if<scene::Picture>(&item))
        takePicture(std::move(*picture));
    else if (auto* text = std::get_if<scene::Text>(&item))
        takeText(std::move(*text));
    else if (const auto* group = std::get_if<scene::BeginGroup>(&item))
        opacity_.push(group->opacity);
    else if (std::holds_alternative<scene::EndGroup>(item))
        opacity_.pop();
    else
        items_.push_back(std::move(item));
}

void ShapeStage::takeShape(Shape shape) {
    if (shape.strokeStyle.width <= 0)
        shape.stroke = {};
    shape.fill = opacity_.overWhite(shape.fill);
    shape.stroke = opacity_.overWhite(shape.stroke);
    if (!isPainted(shape.fill) && !isPainted(shape.stroke))
        return;
    removeFineDashes(shape, warnings_);
    for (Shape& part : bringInRange(shape, warnings_))
        place(std::move(part));
}

/// Only filled text comes as such.
void ShapeStage::takeText(scene::Text text) {
    text.fill = opacity_.overWhite(text.fill);
    if (isPainted(text.fill))
        items_.emplace_back(std::move(text));
}

void ShapeStage::takePicture(scene::Picture picture) {
    const double opacity = picture.opacity * opacity_.current();
    if (opacity <= 0)
        return;
    picture.image = image::flattened(picture.image, opacity, kPaper);
    picture.opacity = 1;
    items_.emplace_back(std::move(picture));
}

/// The fill first, where it needs an outline of its own, then the stroke and its joins.
void ShapeStage::place(Shape shape) {
    if (shape.fillRule == scene::FillRule::evenOdd && isPainted(shape.fill))
        placeEvenOddFill(shape);
    if (!isPainted(shape.fill) && !isPainted(shape.stroke))
        return;
    auto joints = isPainted(shape.stroke) ? replaceRoundJoins(shape) : std::nullopt;
    auto squares = isPainted(shape.stroke) ? squareDots(shape) : std::nullopt;
    items_.emplace_back(std::move(shape));
    for (const auto& extra : {std::move(joints), std::move(squares)})
        if (extra)
            items_.emplace_back(*extra);
}

/// A fill with another outline than the stroke's becomes a shape of its own.
void ShapeStage::placeEvenOddFill(Shape& shape) {
    shape.fillRule = scene::FillRule::nonZero;
    auto outline = nonZeroOutline(*shape.outline, shape.transform, warnings_);
    if (!outline)
        return;
    Shape fill = shape;
    fill.outline = std::make_shared<scene::Outline>(std::move(*outline));
    fill.stroke = {};
    shape.fill = {};
    items_.emplace_back(std::move(fill));
}

}  // namespace psrender::plan
