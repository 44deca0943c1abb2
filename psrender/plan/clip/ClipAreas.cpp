#include "psrender/plan/clip/ClipAreas.h"

#include "psrender/plan/TextOutlines.h"
#include "psrender/plan/geometry/Boxes.h"

#include <algorithm>
#include <optional>

namespace psrender::plan {

using scene::Affine;
using scene::Clip;
using scene::Item;
using scene::ItemList;
using scene::Point;
using scene::Rect;
using scene::Shape;

namespace {

constexpr std::size_t kMostKnown = 64;
constexpr std::size_t kMostCorners = 3'000'000;

bool isAxisParallel(Point a, Point b) {
    constexpr double kRounding = 1e-6;
    return std::abs(a.x - b.x) < kRounding || std::abs(a.y - b.y) < kRounding;
}

/// The box of a shape that is an axis-parallel rectangle on the page.
std::optional<Rect> rectangleOf(const Shape& shape, const Affine& toPage) {
    const Affine map = toPage * shape.transform;
    if (shape.outline->points().size() > 5)
        return std::nullopt;
    const auto lines = flatten(*shape.outline, map, kCurveTolerance);
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
    return boxAround({points[0].x, points[0].y, 0, 0}, {points[2].x, points[2].y, 0, 0});
}

}  // namespace

ClipRegion ClipAreas::regionOf(const Clip& clip) {
    const auto known = std::ranges::find_if(known_, [&](const Known& entry) {
        return entry.clip.area == clip.area && entry.clip.transform == clip.transform;
    });
    if (known != known_.end())
        return known->region;
    ClipRegion region = makeRegion(clip);
    if (known_.size() >= kMostKnown)
        known_.erase(known_.begin());
    known_.push_back({clip, region});
    return region;
}

ClipRegion ClipAreas::makeRegion(const Clip& clip) {
    const auto& items = clip.area->items;
    const Shape* only = items.size() == 1 ? std::get_if<Shape>(items.data()) : nullptr;
    if (only != nullptr)
        if (const auto box = rectangleOf(*only, clip.transform))
            return ClipRegion(*box);
    return ClipRegion(areaOf(*clip.area, clip.transform));
}

/// Within a group with a clip of its own only what that lets through counts.
Polygons ClipAreas::areaOf(const ItemList& list, const Affine& toPage) {
    Polygons all;
    std::vector<std::optional<ClipRegion>> clips;
    for (const Item& item : list.items) {
        if (const auto* group = std::get_if<scene::BeginGroup>(&item)) {
            std::optional<ClipRegion> clip;
            if (group->clip)
                clip = regionOf({group->clip->area, toPage * group->clip->transform});
            clips.push_back(std::move(clip));
        } else if (std::holds_alternative<scene::EndGroup>(item)) {
            if (!clips.empty())
                clips.pop_back();
        } else {
            Polygons area = areaOf(item, toPage);
            for (const auto& clip : clips)
                if (clip)
                    area = clip->cut({std::move(area)}).value_or(Polygons());
            all.insert(all.end(), area.begin(), area.end());
        }
    }
    return simple({std::move(all)});
}

Polygons ClipAreas::areaOf(const Item& item, const Affine& toPage) {
    if (const auto* shape = std::get_if<Shape>(&item))
        return areaOf(*shape, toPage);
    if (const auto* placement = std::get_if<scene::Placement>(&item))
        return areaOf(*placement->symbol, toPage * placement->transform);
    const auto* text = std::get_if<scene::Text>(&item);
    if (const auto outlines = text != nullptr ? outlinesOf(*text) : std::nullopt)
        return areaOf(*outlines, toPage);
    if (text != nullptr)
        warnings_.add("clips in the form of text without outlines hide everything");
    return {};
}

Polygons ClipAreas::areaOf(Shape shape, const Affine& toPage) {
    shape.transform = toPage * shape.transform;
    auto area = shape.transform.isFinite() ? fillOf(shape) : std::nullopt;
    return area ? simple(std::move(*area)) : Polygons();
}

Polygons ClipAreas::simple(Silhouette silhouette) {
    corners_ += countCorners(silhouette.polygons);
    if (corners_ <= kMostCorners)
        if (auto result = simplify(std::move(silhouette.polygons), silhouette.rule))
            return std::move(*result);
    warnings_.add("clips with too many crossings hide everything");
    return {};
}

}  // namespace psrender::plan
