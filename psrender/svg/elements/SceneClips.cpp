// Clip paths: the areas that elements are shown in.

#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/elements/SceneBuilder.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

/// The square of side 1 onto `box`; without a box all on one point, so that nothing is left.
Affine mapOntoBox(const std::optional<Rect>& box) {
    const Rect rect = box.value_or(Rect());
    return {rect.width, 0, 0, rect.height, rect.x, rect.y};
}

bool fitsBox(pugi::xml_node clipPath) {
    return std::string_view(clipPath.attribute("clipPathUnits").value()) == "objectBoundingBox";
}

bool canBeClip(ElementKind kind) {
    return isShape(kind) || kind == ElementKind::use || kind == ElementKind::text;
}

}  // namespace

/// An area in terms of the element's box gets its place when the box is known.
void SceneBuilder::drawWithinClip(const Surroundings& inside, const std::function<void()>& draw) {
    const double opacity = inside.style.opacity;
    const pugi::xml_node clipPath = findClipPath(inside.style);
    if (!clipPath || inside.toPage.determinant() == 0) {
        items_.group(opacity, {}, draw);
        return;
    }
    const auto begin = items_.beginGroup(opacity, clipFor(clipPath, inside));
    const std::size_t shapesBefore = items_.size().shapes;
    draw();
    if (fitsBox(clipPath)) {
        addEffort(items_.size().shapes - shapesBefore, clipPath);
        const auto box = items_.boxSince(begin, inside.toPage.inverse());
        items_.moveClip(begin, inside.toPage * mapOntoBox(box));
    }
    items_.endGroup(begin);
}

/// A clip path that is not there does not clip, nor does one within itself.
pugi::xml_node SceneBuilder::findClipPath(const ComputedStyle& style) const {
    const pugi::xml_node clipPath = tree_.byId(style.clipPath);
    const bool isClipPath = std::string_view(clipPath.name()) == "clipPath";
    const bool isWithinItself = std::ranges::find(targets_, clipPath) != targets_.end();
    return isClipPath && !isWithinItself ? clipPath : pugi::xml_node();
}

scene::Clip SceneBuilder::clipFor(pugi::xml_node clipPath, const Surroundings& inside) {
    const ComputedStyle style = styles_.resolveInPlace(clipPath);
    Measures measures = inside.measures;
    if (fitsBox(clipPath))
        measures.width = measures.height = 1;
    measures.fontSize = style.fontSize;
    const Symbol& symbol = symbolOf(clipPath, {style, measures, std::nullopt}, [&] {
        targets_.push_back(clipPath);
        drawClipArea(clipPath, {style, style.transform, measures, inside.depth + 1, true, true});
        targets_.pop_back();
    });
    return {symbol.items, inside.toPage};
}

void SceneBuilder::drawClipArea(pugi::xml_node clipPath, const Surroundings& inside) {
    const auto draw = [&] {
        for (auto child = firstChildElement(clipPath); child; child = nextElement(child))
            if (canBeClip(elementKind(child.name())))
                this->draw(child, inside);
    };
    if (inside.style.clipPath.empty())
        draw();
    else
        drawWithinClip(inside, draw);
}

}  // namespace psrender::svg
