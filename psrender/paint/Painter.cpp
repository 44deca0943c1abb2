#include "psrender/paint/Painter.h"

#include "Drawing/SizeF.h"
#include "psrender/paint/ItemPainter.h"

namespace psrender::paint {

void Painter::paintPage(const scene::Page& page) {
    document_.startPage({static_cast<float>(page.width), static_cast<float>(page.height)});
    PageResources resources(document_);
    ItemPainter(document_, resources).paint(page);
    document_.endPage();
}

}  // namespace psrender::paint
