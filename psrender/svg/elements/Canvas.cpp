#include "psrender/svg/elements/Canvas.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/path/ShapeOutlines.h"
#include "psrender/svg/xml/XmlTree.h"

#include <cmath>
#include <string>
#include <utility>

namespace psrender::svg {

void Canvas::add(scene::Shape shape, pugi::xml_node element) {
    if (!hasInside(*shape.outline))
        shape.fill = {};
    if (isPainted(shape.fill) || isPainted(shape.stroke))
        require(items_.add(std::move(shape)), element);
}

void Canvas::add(scene::Text text, pugi::xml_node element) {
    if (isPainted(text.fill) || isPainted(text.stroke))
        require(items_.add(std::move(text)), element);
}

void Canvas::addUnpainted(scene::Shape shape, pugi::xml_node element) {
    require(items_.add(std::move(shape)), element);
}

void Canvas::add(scene::Picture picture, pugi::xml_node element) {
    require(items_.add(std::move(picture)), element);
}

void Canvas::place(const Symbol& symbol, const scene::Affine& toPage, pugi::xml_node element) {
    if (!symbol.items->items.empty())
        require(items_.add({symbol.items, toPage}, symbol.size), element);
}

bool Canvas::canShow(const scene::Affine& toPage) {
    const double determinant = toPage.determinant();
    if (determinant != 0 && std::isfinite(determinant) && toPage.isFinite())
        return true;
    if (determinant != 0)
        warnings_.add("shapes that are enlarged beyond all measure are left out");
    return false;
}

void Canvas::require(bool isAdded, pugi::xml_node element) const {
    if (isAdded)
        return;
    const ReadingLimits& limits = items_.limits();
    tree_.fail(element, "the picture has more than " + std::to_string(limits.shapes) +
                            " shapes or " + std::to_string(limits.points()) +
                            " points; split it, simplify its paths, or raise the limit with "
                            "--max-shapes");
}

}  // namespace psrender::svg
