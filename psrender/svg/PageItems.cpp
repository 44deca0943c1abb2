#include "psrender/svg/PageItems.h"

#include "psrender/scene/OutlineBox.h"

#include <algorithm>

namespace psrender::svg {

namespace {

using scene::Paint;
using scene::Shape;

constexpr std::size_t mostShapes = 2'000'000;
constexpr std::size_t mostPoints = 50'000'000;

/// Fill and stroke overlap, so with both the opacity has to stay around the two.
template <class Painted>
bool takeOver(double opacity, Painted& item) {
    if (isPainted(item.fill) == isPainted(item.stroke))
        return false;
    Paint& paint = isPainted(item.fill) ? item.fill : item.stroke;
    paint.opacity *= opacity;
    return true;
}

/// Puts boxes around points and items.
class BoxFinder {
public:
    void addItems(const scene::Item* first, const scene::Item* end, const scene::Affine& map) {
        for (; first != end; ++first)
            std::visit([&](const auto& item) { addItem(item, map); }, *first);
    }
    std::optional<scene::Rect> box;

private:
    void addItem(const Shape& shape, const scene::Affine& map) {
        if (const auto around = tightBox(shape.outline->transformed(map * shape.transform)))
            addBox(*around);
    }
    /// The cells of its glyphs.
    void addItem(const scene::Text& text, const scene::Affine& map) {
        const scene::TextRun& run = *text.run;
        const scene::Affine whole = map * text.transform;
        const double unit = run.size / 1000;
        const Fonts::FontMetrics& metrics = run.program->getMetrics();
        for (const scene::PlacedGlyph& glyph : run.glyphs)
            for (const double x : {0.0, run.program->getAdvance(glyph.id) * unit})
                for (const double y : {metrics.ascent * unit, metrics.descent * unit}) {
                    const scene::Point p = whole.apply({glyph.origin.x + x, glyph.origin.y - y});
                    addBox({p.x, p.y, 0, 0});
                }
    }
    void addItem(const scene::Picture& picture, const scene::Affine& map) {
        const scene::Affine whole = map * picture.transform;
        for (const scene::Point corner : {scene::Point{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
            const scene::Point p = whole.apply(corner);
            addBox({p.x, p.y, 0, 0});
        }
    }
    void addItem(const scene::Placement& placement, const scene::Affine& map) {
        const auto& items = placement.symbol->items;
        addItems(items.data(), items.data() + items.size(), map * placement.transform);
    }
    template <class Other>
    void addItem(const Other& /*item*/, const scene::Affine& /*map*/) {}

    void addBox(const scene::Rect& other) {
        if (!box)
            box = other;
        const double right = std::max(box->x + box->width, other.x + other.width);
        const double bottom = std::max(box->y + box->height, other.y + other.height);
        box->x = std::min(box->x, other.x);
        box->y = std::min(box->y, other.y);
        box->width = right - box->x;
        box->height = bottom - box->y;
    }
};

bool takeOver(double opacity, scene::Item& item) {
    if (auto* picture = std::get_if<scene::Picture>(&item)) {
        picture->opacity *= opacity;
        return true;
    }
    if (auto* text = std::get_if<scene::Text>(&item))
        return takeOver(opacity, *text);
    auto* shape = std::get_if<Shape>(&item);
    return shape != nullptr && takeOver(opacity, *shape);
}

}  // namespace

bool PageItems::add(Shape shape) {
    if (!grow({1, shape.outline->points().size() + shape.strokeStyle.dashes.size()}))
        return false;
    items_.emplace_back(std::move(shape));
    return true;
}

bool PageItems::add(scene::Picture picture) {
    if (!grow({1, 0}))
        return false;
    items_.emplace_back(std::move(picture));
    return true;
}

bool PageItems::add(scene::Text text) {
    if (!grow({1, text.run->glyphs.size()}))
        return false;
    items_.emplace_back(std::move(text));
    return true;
}

bool PageItems::add(scene::Placement placement, Size size) {
    if (!grow(size))
        return false;
    items_.emplace_back(std::move(placement));
    return true;
}

bool PageItems::grow(Size size) {
    size_ = size_ + size;
    return size_.shapes <= mostShapes && size_.points <= mostPoints;
}

PageItems::Mark PageItems::beginGroup(double opacity, std::optional<scene::Clip> clip) {
    items_.emplace_back(scene::BeginGroup{opacity, std::move(clip)});
    return items_.size() - 1;
}

std::optional<scene::Rect> PageItems::boxSince(Mark begin, const scene::Affine& fromPage) const {
    BoxFinder finder;
    finder.addItems(items_.data() + begin + 1, items_.data() + items_.size(), fromPage);
    return finder.box;
}

void PageItems::moveClip(Mark begin, const scene::Affine& toPage) {
    std::get<scene::BeginGroup>(items_[begin]).clip->transform = toPage;
}

void PageItems::endGroup(Mark begin) {
    const std::size_t count = items_.size() - begin - 1;
    if (count == 0) {
        items_.pop_back();
        return;
    }
    const auto& group = std::get<scene::BeginGroup>(items_[begin]);
    const double opacity = group.opacity;
    if (count == 1 && !group.clip && takeOver(opacity, items_.back())) {
        items_[begin] = std::move(items_.back());
        items_.pop_back();
        return;
    }
    items_.emplace_back(scene::EndGroup{});
}

}  // namespace psrender::svg
