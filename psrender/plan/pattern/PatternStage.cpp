#include "psrender/plan/pattern/PatternStage.h"

#include "psrender/plan/geometry/Box.h"
#include "psrender/plan/geometry/Boxes.h"
#include "psrender/plan/geometry/Seen.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace psrender::plan {

using scene::Affine;
using scene::Item;
using scene::ItemList;
using scene::Paint;
using scene::Rect;
using scene::Shape;

namespace {

constexpr std::size_t kMostLaidOut = 200'000;

bool isPattern(const Paint& paint) {
    return paint.kind == Paint::Kind::pattern;
}

Paint solid() {
    Paint paint;
    paint.kind = Paint::Kind::solid;
    return paint;
}

/// Only the fill of `shape`, or only its stroke.
Shape fillOf(Shape shape) {
    shape.stroke = {};
    return shape;
}
Shape strokeOf(Shape shape) {
    shape.fill = {};
    return shape;
}

/// Everything that the one paint of `part` covers, as a clip.
scene::Clip areaOf(Shape part) {
    (part.fill.kind != Paint::Kind::none ? part.fill : part.stroke) = solid();
    return {std::make_shared<const ItemList>(ItemList{{std::move(part)}}), {}};
}

scene::Clip clipTo(const Rect& box, const Affine& toPage) {
    scene::Outline outline;
    outline.moveTo({box.x, box.y});
    outline.lineTo({box.x + box.width, box.y});
    outline.lineTo({box.x + box.width, box.y + box.height});
    outline.lineTo({box.x, box.y + box.height});
    outline.close();
    Shape area;
    area.outline = std::make_shared<const scene::Outline>(std::move(outline));
    area.transform = toPage;
    area.fill = solid();
    return areaOf(std::move(area));
}

bool holds(const Rect& outer, const Rect& inner) {
    return inner.x >= outer.x && inner.y >= outer.y &&
           inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

/// The tiles that show in a box, by their place in the tiling.
struct Range {
    double first;
    double last;

    [[nodiscard]] double count() const { return last - first + 1; }
};

/// `extra` tiles to either side reach into the box as well.
Range tilesIn(double begin, double length, double step, double extra) {
    return {std::floor(begin / step) - extra, std::ceil((begin + length) / step) - 1 + extra};
}

}  // namespace

void PatternStage::take(Item item) {
    if (auto* shape = std::get_if<Shape>(&item))
        takeShape(std::move(*shape));
    else if (auto* text = std::get_if<scene::Text>(&item))
        takeText(std::move(*text));
    else
        next_.take(std::move(item));
}

/// A pattern that has to be laid out makes an item of its own of fill or stroke.
void PatternStage::takeShape(Shape shape) {
    if (shape.strokeStyle.width <= 0)
        shape.stroke = {};
    if (!isPattern(shape.fill) && !isPattern(shape.stroke)) {
        next_.take(std::move(shape));
        return;
    }
    if (!hasInverse(shape.transform))
        return;
    const Affine& toPage = shape.transform;
    const Rect page = mappedBox(page_, toPage.inverse());
    const auto filled = common(fillBox(shape), page);
    const auto stroked = common(strokeBox(shape), page);
    const auto fill = filled ? known(shape.fill, toPage) : Paint();
    const auto stroke = stroked ? known(shape.stroke, toPage) : Paint();
    if (!fill)
        layOut(fillOf(shape), shape.fill, *filled);
    Shape rest = shape;
    rest.fill = fill.value_or(Paint());
    rest.stroke = stroke.value_or(Paint());
    if (isPainted(rest.fill) || isPainted(rest.stroke))
        next_.take(std::move(rest));
    if (!stroke)
        layOut(strokeOf(shape), shape.stroke, *stroked);
}

void PatternStage::takeText(scene::Text text) {
    for (Paint* paint : {&text.fill, &text.stroke}) {
        const auto found = known(*paint, text.transform);
        if (!found)
            warnings_.add("text is not painted with patterns of text, pictures or gradients");
        *paint = found.value_or(Paint());
    }
    next_.take(std::move(text));
}

std::optional<Paint> PatternStage::known(const Paint& paint, const Affine& toPage) {
    if (!isPattern(paint))
        return paint;
    const Rect& tile = paint.pattern->tile;
    if (!isSeen(toPage * paint.pattern->transform * Affine::scaling(tile.width, tile.height))) {
        warnings_.add("gradients and patterns too small to be seen are left out");
        return Paint();
    }
    Paint result = paint;
    result.pattern = patterns_.tileFor(*paint.pattern, toPage);
    return result.pattern ? std::optional(result) : std::nullopt;
}

void PatternStage::layOut(const Shape& part, const Paint& paint, const Rect& box) {
    const scene::Pattern& pattern = *paint.pattern;
    const Affine toPage = part.transform * pattern.transform;
    const Rect shown = mappedBox(box, pattern.transform.inverse());
    const Rect& tile = pattern.tile;
    const Rect content = boxOf(*pattern.content).value_or(tile);
    const bool isWhole = holds(tile, content);
    const double extra = pattern.isClipped || isWhole ? 0 : 1;
    const Range across = tilesIn(shown.x - tile.x, shown.width, tile.width, extra);
    const Range down = tilesIn(shown.y - tile.y, shown.height, tile.height, extra);
    if (pattern.content->items.empty())
        return;
    const double items =
        across.count() * down.count() * static_cast<double>(pattern.content->items.size());
    if (!(items + static_cast<double>(laidOut_) <= kMostLaidOut)) {
        warnings_.add("patterns that repeat pictures, text or gradients too often are left out");
        return;
    }
    laidOut_ += static_cast<std::size_t>(items);
    take(scene::BeginGroup{paint.opacity, areaOf(part)});
    for (std::int64_t row = 0; row < static_cast<std::int64_t>(down.count()); ++row)
        for (std::int64_t column = 0; column < static_cast<std::int64_t>(across.count());
             ++column) {
            const double x = (across.first + static_cast<double>(column)) * tile.width;
            const double y = (down.first + static_cast<double>(row)) * tile.height;
            layOutTile(pattern, toPage * Affine::translation(x, y), pattern.isClipped && !isWhole);
        }
    take(scene::EndGroup{});
}

void PatternStage::layOutTile(const scene::Pattern& pattern, const Affine& toPage, bool isCut) {
    if (isCut)
        take(scene::BeginGroup{1, clipTo(pattern.tile, toPage)});
    takeAll(*pattern.content, toPage);
    if (isCut)
        take(scene::EndGroup{});
}

void PatternStage::takeAll(const ItemList& list, const Affine& map) {
    ItemList copy = list;
    transform(copy, map);
    for (Item& item : copy.items)
        if (const auto* placement = std::get_if<scene::Placement>(&item))
            takeAll(*placement->symbol, placement->transform);
        else
            take(std::move(item));
}

}  // namespace psrender::plan
