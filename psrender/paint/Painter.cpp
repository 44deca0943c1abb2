#include "psrender/paint/Painter.h"

#include "Drawing/Matrix.h"
#include "Drawing/SizeF.h"
#include "psrender/paint/ItemPainter.h"

namespace psrender::paint {

void Painter::paintPage(const scene::Page& page) {
    context_.startPage({static_cast<float>(page.width), static_cast<float>(page.height)});
    context_.setTransform({});
    ItemPainter items(context_, brushes_);
    for (const scene::Item& item : page.items)
        std::visit(items, item);
    context_.endPage();
}

}  // namespace psrender::paint
