#include "psrender/plan/TextBox.h"

#include "psrender/plan/Boxes.h"

namespace psrender::plan {

using scene::Rect;

/// Few glyphs reach farther from their origin than the size of the em.
std::optional<Rect> textBox(const scene::Text& text) {
    std::optional<Rect> box;
    for (const scene::PlacedGlyph& glyph : text.run->glyphs) {
        const Rect spot{glyph.origin.x, glyph.origin.y, 0, 0};
        box = box ? boxAround(*box, spot) : spot;
    }
    if (box)
        box = mappedBox(grown(*box, text.run->size), text.transform);
    return box;
}

}  // namespace psrender::plan
