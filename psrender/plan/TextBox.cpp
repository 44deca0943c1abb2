#include "psrender/plan/TextBox.h"

#include "psrender/plan/geometry/Boxes.h"

namespace psrender::plan {

using scene::Rect;

/// Few glyphs reach farther from their origin than the size of the em.
std::optional<Rect> runBox(const scene::TextRun& run) {
    std::optional<Rect> box;
    for (const scene::PlacedGlyph& glyph : run.glyphs) {
        const Rect spot{glyph.origin.x, glyph.origin.y, 0, 0};
        box = box ? boxAround(*box, spot) : spot;
    }
    return box ? std::optional(grown(*box, run.size)) : box;
}

std::optional<Rect> textBox(const scene::Text& text) {
    const auto box = runBox(*text.run);
    return box ? std::optional(mappedBox(*box, text.transform)) : box;
}

}  // namespace psrender::plan
