#include "psrender/plan/clip/ClipShapes.h"

#include "psrender/plan/TextOutlines.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/geometry/Range.h"
#include "psrender/plan/geometry/Silhouette.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::Clip;
using scene::Item;
using scene::ItemList;
using scene::Outline;
using scene::Point;
using scene::Rect;
using scene::Shape;

namespace {

constexpr std::size_t kMostKnown = 64;
/// Shapes of which each is compared with all others.
constexpr std::size_t kMostCompared = 200;

bool isAxisParallel(Point a, Point b) {
    constexpr double kRounding = 1e-6;
    return std::abs(a.x - b.x) < kRounding || std::abs(a.y - b.y) < kRounding;
}

/// Whether shapes can be filled as one, being apart from each other.
bool areApart(const std::vector<Shape>& shapes) {
    if (shapes.size() > kMostCompared)
        return false;
    std::vector<Rect> boxes;
    for (const Shape& shape : shapes) {
        const auto box = boxOf(shape);
        if (!box || shape.fillRule != shapes.front().fillRule ||
            std::ranges::any_of(boxes, [&](const Rect& other) { return other.meets(*box); }))
            return false;
        boxes.push_back(*box);
    }
    return true;
}

/// All outlines in one, on the page.
Shape joined(const std::vector<Shape>& shapes) {
    auto outline = std::make_shared<Outline>();
    Shape result;
    for (const Shape& shape : shapes) {
        outline->append(shape.outline->transformed(shape.transform));
        result.fillRule = shape.fillRule;
    }
    result.outline = std::move(outline);
    return result;
}

}  // namespace

std::optional<Rect> rectangleOf(const Shape& shape) {
    if (shape.outline->points().size() > 5)
        return std::nullopt;
    const auto lines = flatten(*shape.outline, shape.transform, kCurveTolerance);
    if (lines.size() != 1)
        return std::nullopt;
    auto points = lines[0].points;
    if (points.size() == 5 && points.front() == points.back())
        points.pop_back();
    if (points.size() != 4)
        return std::nullopt;
    for (std::size_t i = 0; i < 4; ++i)
        if (!isAxisParallel(points[i], points[(i + 1) % 4]))
            return std::nullopt;
    return Rect::between(points[0], points[2]);
}

std::shared_ptr<const PlannedClip> clipTo(Shape shape) {
    shape.fill = {scene::Color()};
    shape.stroke = {};
    PlannedClip planned;
    planned.box = shape.outline->controlBox()->mapped(shape.transform);
    planned.isRectangle = rectangleOf(shape).has_value();
    planned.clip.area = std::make_shared<const ItemList>(ItemList{{std::move(shape)}});
    return std::make_shared<const PlannedClip>(std::move(planned));
}

std::shared_ptr<const PlannedClip> ClipShapes::plannedFor(const Clip& clip) {
    const auto known = std::ranges::find_if(known_, [&](const Known& entry) {
        return entry.clip.area == clip.area && entry.clip.transform == clip.transform;
    });
    if (known != known_.end())
        return known->planned;
    auto planned = plan(clip);
    if (known_.size() >= kMostKnown)
        known_.erase(known_.begin());
    known_.push_back({clip, planned});
    return planned;
}

std::shared_ptr<const PlannedClip> ClipShapes::plan(const Clip& clip) {
    Shape shape = shapeOf(clip);
    shape.fill = {scene::Color()};
    auto inRange = bringInRange(shape, warnings_);
    if (inRange.empty())
        return nullptr;
    return clipTo(std::move(inRange.front()));
}

Shape ClipShapes::shapeOf(const Clip& clip) {
    std::vector<Shape> shapes;
    const bool isPlain = collect(*clip.area, clip.transform, shapes);
    if (isPlain && shapes.size() == 1)
        return shapes.front();
    if (isPlain && areApart(shapes))
        return joined(shapes);
    if (const auto area = areaOf(*clip.area, clip.transform)) {
        Shape shape;
        shape.outline = std::make_shared<const Outline>(area->outline());
        return shape;
    }
    warnings_.add("clips with too many crossings may have holes");
    return joined(shapes);
}

bool ClipShapes::collect(const ItemList& list, const Affine& toPage, std::vector<Shape>& shapes) {
    for (const Item& item : list.items) {
        const auto* placement = std::get_if<scene::Placement>(&item);
        const auto* group = std::get_if<scene::BeginGroup>(&item);
        const bool isPlain = placement != nullptr ? collect(*placement->symbol,
                                                            toPage * placement->transform, shapes)
                                                  : group == nullptr || !group->clip;
        if (!isPlain)
            return false;
        if (auto shape = shapeOf(item, toPage); shape && !shape->outline->empty())
            shapes.push_back(std::move(*shape));
    }
    return true;
}

/// What a shape or text fills, whatever its paint.
std::optional<Shape> ClipShapes::shapeOf(const Item& item, const Affine& toPage) {
    const auto* text = std::get_if<scene::Text>(&item);
    const auto* shape = std::get_if<Shape>(&item);
    auto result = text != nullptr    ? outlinesOf(*text)
                  : shape != nullptr ? std::optional(*shape)
                                     : std::nullopt;
    if (text != nullptr && !result)
        warnings_.add("clips in the form of text without outlines hide everything");
    if (!result)
        return result;
    result->transform = toPage * result->transform;
    result->fill = {scene::Color()};
    result->stroke = {};
    return result->transform.isFinite() ? std::move(result) : std::nullopt;
}

/// Within a group with a clip of its own only what that lets through counts.
std::optional<Polygons> ClipShapes::areaOf(const ItemList& list, const Affine& toPage) {
    Polygons all;
    std::vector<std::optional<Polygons>> clips;
    for (const Item& item : list.items) {
        if (const auto* group = std::get_if<scene::BeginGroup>(&item)) {
            clips.push_back(group->clip
                                ? areaOf(*group->clip->area, toPage * group->clip->transform)
                                : std::nullopt);
        } else if (std::holds_alternative<scene::EndGroup>(item)) {
            if (!clips.empty())
                clips.pop_back();
        } else {
            Polygons area = areaOf(item, toPage);
            for (const auto& clip : clips)
                if (clip)
                    area = area.common(*clip, budget_).value_or(Polygons());
            all.append(area);
        }
    }
    return all.simplified(scene::FillRule::nonZero, budget_);
}

Polygons ClipShapes::areaOf(const Item& item, const Affine& toPage) {
    if (const auto* placement = std::get_if<scene::Placement>(&item))
        return areaOf(*placement->symbol, toPage * placement->transform).value_or(Polygons());
    const auto shape = shapeOf(item, toPage);
    return shape ? fillArea(*shape, budget_).value_or(Polygons()) : Polygons();
}

}  // namespace psrender::plan
