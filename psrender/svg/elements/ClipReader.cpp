#include "psrender/svg/elements/ClipReader.h"

#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/elements/References.h"
#include "psrender/svg/paint/PaintServer.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <optional>
#include <string_view>

namespace psrender::svg {

using scene::Rect;

namespace {

bool fitsBox(pugi::xml_node clipPath) {
    return std::string_view(clipPath.attribute("clipPathUnits").value()) == "objectBoundingBox";
}

bool canBeClip(ElementKind kind) {
    return isShape(kind) || kind == ElementKind::use || kind == ElementKind::text;
}

}  // namespace

/// An area in terms of the element's box gets its place when the box is known. Without a box it is
/// all on one point, so that nothing is left.
void ClipReader::drawWithin(const Surroundings& inside, const std::function<void()>& draw) {
    const double opacity = inside.style.opacity;
    const pugi::xml_node clipPath = find(inside.style);
    if (!clipPath || inside.toPage.determinant() == 0) {
        items_.group(opacity, {}, draw);
        return;
    }
    const auto begin = items_.beginGroup(opacity, read(clipPath, inside));
    const std::size_t shapesBefore = items_.size().shapes;
    const auto scope = items_.boxScope(fitsBox(clipPath));
    draw();
    if (fitsBox(clipPath)) {
        references_.spend(items_.size().shapes - shapesBefore, clipPath);
        const auto box = items_.boxSince(begin, inside.toPage.inverse());
        items_.moveClip(begin, inside.toPage * mapToBox(box.value_or(Rect())));
    }
    items_.endGroup(begin);
}

/// A clip path that is not there does not clip, nor does one within itself.
pugi::xml_node ClipReader::find(const ComputedStyle& style) const {
    const pugi::xml_node clipPath = tree_.byId(style.clipPath);
    const bool isClipPath = std::string_view(clipPath.name()) == "clipPath";
    return isClipPath && !references_.isWithin(clipPath) ? clipPath : pugi::xml_node();
}

scene::Clip ClipReader::read(pugi::xml_node clipPath, const Surroundings& inside) {
    const ComputedStyle style = styles_.resolveInPlace(clipPath);
    Measures measures = inside.measures;
    if (fitsBox(clipPath))
        measures.width = measures.height = 1;
    measures.fontSize = style.fontSize;
    const Symbol& symbol = references_.symbolOf(clipPath, {style, measures, std::nullopt}, [&] {
        references_.drawWithin(clipPath, [&] {
            drawArea(clipPath, {style, style.transform, measures, inside.depth + 1, true, true});
        });
    });
    return {symbol.items, inside.toPage};
}

void ClipReader::drawArea(pugi::xml_node clipPath, const Surroundings& inside) {
    const auto draw = [&] {
        for (auto child = firstChildElement(clipPath); child; child = nextElement(child))
            if (canBeClip(elementKind(child.name())))
                walker_.draw(child, inside, nullptr);
    };
    if (inside.style.clipPath.empty())
        draw();
    else
        drawWithin(inside, draw);
}

}  // namespace psrender::svg
