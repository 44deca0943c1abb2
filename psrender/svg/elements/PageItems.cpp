#include "psrender/svg/elements/PageItems.h"

#include "psrender/scene/OutlineBox.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace psrender::svg {

namespace {

using scene::Shape;

/// Fill and stroke overlap, so with both the opacity has to stay around the two.
template <class Painted>
bool takeOver(double opacity, Painted& item) {
    if (isPainted(item.fill) == isPainted(item.stroke))
        return false;
    paintOf(item).opacity *= opacity;
    return true;
}

/// Puts a box around items, mapped from their space.
class BoxFinder {
public:
    explicit BoxFinder(const scene::Affine& map, bool hasStrokes = false)
        : map_(map), hasStrokes_(hasStrokes) {}

    void operator()(const Shape& shape) {
        if (const auto around = tightBox(shape.outline->transformed(map_ * shape.transform)))
            addBox(around->grown(strokeBeyond(shape)));
    }
    /// The cells of its glyphs.
    void operator()(const scene::Text& text) {
        const scene::TextRun& run = *text.run;
        const double unit = run.size / 1000;
        const Fonts::FontMetrics& metrics = run.program->getMetrics();
        for (const scene::PlacedGlyph& glyph : run.glyphs)
            for (const double x : {0.0, run.program->getAdvance(glyph.id) * unit})
                for (const double y : {metrics.ascent * unit, metrics.descent * unit})
                    addPoint(text.transform, {glyph.origin.x + x, glyph.origin.y - y});
    }
    void operator()(const scene::Picture& picture) {
        for (const scene::Point corner : {scene::Point{0, 0}, {1, 0}, {0, 1}, {1, 1}})
            addPoint(picture.transform, corner);
    }
    void operator()(const scene::Placement& placement) {
        BoxFinder finder(map_ * placement.transform, hasStrokes_);
        for (const scene::Item& item : placement.symbol->items)
            std::visit(finder, item);
        if (finder.box)
            addBox(*finder.box);
    }
    /// A filter may reach beyond what it is applied to.
    void operator()(const scene::BeginGroup& group) {
        if (hasStrokes_ && group.effects && group.effects->filter)
            addBox(group.effects->filter->region.mapped(map_ * group.effects->filter->transform));
    }
    void operator()(const scene::EndGroup& /*end*/) {}

    std::optional<scene::Rect> box;

private:
    /// How far the stroke reaches at most, its spikes aside.
    [[nodiscard]] double strokeBeyond(const Shape& shape) const {
        const bool counts = hasStrokes_ && isPainted(shape.stroke);
        return counts ? shape.strokeStyle.width / 2 * (map_ * shape.transform).largestScale() : 0;
    }
    void addPoint(const scene::Affine& transform, scene::Point point) {
        const scene::Point p = (map_ * transform).apply(point);
        addBox({p.x, p.y, 0, 0});
    }
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

    scene::Affine map_;
    bool hasStrokes_;
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
    return size_.shapes <= limits_.shapes && size_.points <= limits_.points();
}

PageItems::Mark PageItems::beginGroup(double opacity, std::optional<scene::Clip> clip) {
    items_.emplace_back(scene::BeginGroup{opacity, std::move(clip)});
    return items_.size() - 1;
}

void PageItems::setEffects(Mark begin, scene::Effects effects) {
    std::get<scene::BeginGroup>(items_[begin]).effects =
        std::make_shared<const scene::Effects>(std::move(effects));
}

std::optional<scene::Rect> PageItems::boxSince(Mark begin, const scene::Affine& fromPage) const {
    BoxFinder finder(fromPage);
    for (std::size_t i = begin + 1; i < items_.size(); ++i)
        std::visit(finder, items_[i]);
    return finder.box;
}

std::optional<scene::Rect> PageItems::inkBox() const {
    BoxFinder finder({}, true);
    for (const scene::Item& item : items_)
        std::visit(finder, item);
    return finder.box;
}

void PageItems::moveClip(Mark begin, const scene::Affine& toPage) {
    std::get<scene::BeginGroup>(items_[begin]).clip->transform = toPage;
}

void PageItems::endGroup(Mark begin) {
    const std::size_t count = items_.size() - begin - 1;
    const auto& group = std::get<scene::BeginGroup>(items_[begin]);
    if (count == 0 && (!group.effects || !group.effects->filter)) {
        items_.pop_back();
        return;
    }
    const double opacity = group.opacity;
    if (count == 1 && !group.clip && !group.effects && takeOver(opacity, items_.back())) {
        items_[begin] = std::move(items_.back());
        items_.pop_back();
        return;
    }
    items_.emplace_back(scene::EndGroup{});
}

}  // namespace psrender::svg
