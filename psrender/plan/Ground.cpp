#include "psrender/plan/Ground.h"

#include "psrender/plan/Boxes.h"

#include "psrender/plan/Polyline.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using scene::Affine;
using scene::Color;
using scene::Paint;
using scene::Point;
using scene::Rect;
using scene::Shape;

namespace {

constexpr double kTolerance = 0.002;  // of the picture's side
constexpr Color kPaper{255, 255, 255};

bool meet(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

/// Whether the line crosses the inside of the box: the sides of the line that its corners are on
/// differ, and so do their boxes not miss each other.
bool crosses(Point from, Point to, const Rect& box) {
    const Rect lineBox{std::min(from.x, to.x), std::min(from.y, to.y), std::abs(to.x - from.x),
                       std::abs(to.y - from.y)};
    if (lineBox.x >= box.x + box.width || lineBox.x + lineBox.width <= box.x ||
        lineBox.y >= box.y + box.height || lineBox.y + lineBox.height <= box.y)
        return false;
    const auto side = [&](double x, double y) {
        return (to.x - from.x) * (y - from.y) - (to.y - from.y) * (x - from.x);
    };
    const auto [least, most] =
        std::minmax({side(box.x, box.y), side(box.x + box.width, box.y),
                     side(box.x, box.y + box.height), side(box.x + box.width, box.y + box.height)});
    return least < 0 && most > 0;
}

/// How the line turns around a point: 1 or -1 if it passes to its right, else 0.
int turn(Point from, Point to, Point around) {
    if ((from.y <= around.y) == (to.y <= around.y))
        return 0;
    const double x = from.x + (around.y - from.y) * (to.x - from.x) / (to.y - from.y);
    if (x <= around.x)
        return 0;
    return from.y < to.y ? 1 : -1;
}

/// How far from its line a stroke may reach, sharp corners and square caps included.
double strokeReach(const Shape& shape, const Affine& map) {
    if (shape.stroke.kind == Paint::Kind::none)
        return 0;
    const double widest = std::max(std::hypot(map.a, map.b), std::hypot(map.c, map.d));
    const bool hasCorners = shape.outline->points().size() > 2;
    const double farthest = hasCorners ? std::max(1.5, shape.strokeStyle.miterLimit) : 1.5;
    return shape.strokeStyle.width / 2 * farthest * widest;
}

}  // namespace

std::optional<Color> Ground::beneath(const Affine& picture) {
    const Answer answer = look(painted_, picture.inverse(), {0, 0, 1, 1});
    return answer ? *answer : kPaper;
}

Ground::Answer Ground::look(const std::vector<scene::Item>& items, const Affine& map,
                            const Rect& area) {
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (steps_ == 0)
            return Answer(std::nullopt);
        --steps_;
        Answer answer;
        if (const auto* shape = std::get_if<Shape>(&*item))
            answer = look(*shape, map * shape->transform, area);
        else if (const auto* placement = std::get_if<scene::Placement>(&*item))
            answer = look(placement->symbol->items, map * placement->transform, area);
        else if (const auto* picture = std::get_if<scene::Picture>(&*item))
            if (meet(mappedBox({0, 0, 1, 1}, map * picture->transform), area))
                answer = Answer(std::in_place, std::nullopt);
        if (answer)
            return answer;
    }
    return std::nullopt;
}

Ground::Answer Ground::look(const Shape& shape, const Affine& map, const Rect& area) {
    const double reach = strokeReach(shape, map);
    const auto box = shape.outline->controlBox();
    steps_ -= std::min(steps_, shape.outline->points().size());
    const Rect around = grown(area, reach);
    if (!box || !meet(grown(mappedBox(*box, map), kTolerance), around))
        return std::nullopt;
    switch (placeOf(shape, map, around)) {
        case Place::outside:
            return std::nullopt;
        case Place::inside:
            if (shape.fill.kind == Paint::Kind::none)
                return std::nullopt;
            if (shape.fill.kind == Paint::Kind::solid)
                return Answer(shape.fill.color);
            break;
        case Place::across:
            break;
    }
    return Answer(std::in_place, std::nullopt);
}

Ground::Place Ground::placeOf(const Shape& shape, const Affine& map, const Rect& area) {
    const Point middle{area.x + area.width / 2, area.y + area.height / 2};
    int winding = 0;
    for (const Polyline& line : flatten(*shape.outline, map, kTolerance)) {
        steps_ -= std::min(steps_, line.points.size());
        for (std::size_t i = 0; i < line.points.size(); ++i) {
            const Point from = line.points[i];
            const Point to = line.points[(i + 1) % line.points.size()];
            if (crosses(from, to, area))
                return Place::across;
            winding += turn(from, to, middle);
        }
    }
    return winding == 0 ? Place::outside : Place::inside;
}

}  // namespace psrender::plan
