#include "psrender/plan/Planner.h"

#include "psrender/plan/DashWalk.h"
#include "psrender/plan/FillRule.h"
#include "psrender/plan/Joins.h"
#include "psrender/plan/Opacity.h"
#include "psrender/plan/Range.h"

#include <utility>

namespace psrender::plan {

namespace {

using scene::Paint;
using scene::Shape;

bool isPainted(const Paint& paint) {
    return paint.kind != Paint::Kind::none;
}

/// Walks the display list once, from the lowest item to the topmost.
class PagePlanner {
public:
    explicit PagePlanner(Warnings& warnings) : warnings_(warnings) {}

    void operator()(const scene::BeginGroup& group) { opacity_.push(group.opacity); }
    void operator()(const scene::EndGroup& /*end*/) { opacity_.pop(); }

    void operator()(Shape shape) {
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

    std::vector<scene::Item> takeItems() { return std::move(items_); }

private:
    /// The fill first, where it needs an outline of its own, then the stroke and its joins.
    void place(Shape shape) {
        if (shape.fillRule == scene::FillRule::evenOdd && isPainted(shape.fill))
            placeEvenOddFill(shape);
        if (!isPainted(shape.fill) && !isPainted(shape.stroke))
            return;
        auto joints = isPainted(shape.stroke) ? replaceRoundJoins(shape) : std::nullopt;
        auto squares = isPainted(shape.stroke) ? squareDots(shape) : std::nullopt;
        items_.emplace_back(std::move(shape));
        for (auto& extra : {std::move(joints), std::move(squares)})
            if (extra)
                items_.emplace_back(*extra);
    }

    /// A fill with another outline than the stroke's becomes a shape of its own.
    void placeEvenOddFill(Shape& shape) {
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

    Warnings& warnings_;
    OpacityStack opacity_;
    std::vector<scene::Item> items_;
};

}  // namespace

scene::Page plan(const scene::Page& page, Warnings& warnings) {
    PagePlanner planner(warnings);
    for (const scene::Item& item : page.items)
        std::visit(planner, item);
    return {page.width, page.height, planner.takeItems()};
}

}  // namespace psrender::plan
