#include "psrender/svg/PageItems.h"

namespace psrender::svg {

namespace {

using scene::Paint;
using scene::Shape;

constexpr std::size_t mostShapes = 2'000'000;
constexpr std::size_t mostPoints = 50'000'000;

bool paints(const Paint& paint) {
    return paint.kind != Paint::Kind::none;
}

/// Fill and stroke overlap, so with both the opacity has to stay around the two.
template <class Painted>
bool takeOver(double opacity, Painted& item) {
    if (paints(item.fill) == paints(item.stroke))
        return false;
    Paint& paint = paints(item.fill) ? item.fill : item.stroke;
    paint.opacity *= opacity;
    return true;
}

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
