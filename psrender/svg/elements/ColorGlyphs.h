#pragma once

#include "Fonts/GlyphColors.h"
#include "psrender/scene/DisplayList.h"

#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class Canvas;
class ImageLinks;

/// Draws text in fonts that have colours of their own, such as emoji: layers one over the other, or
/// a picture over a blank that says what it shows.
class ColorGlyphs {
public:
    /// All must outlive it.
    ColorGlyphs(ImageLinks& links, Canvas& canvas, Warnings& warnings)
        : links_(links), canvas_(canvas), warnings_(warnings) {}

    /// Adds `text` to the canvas, whatever its font is.
    void draw(const scene::Text& text, pugi::xml_node element);

private:
    /// These draw a text of one glyph.
    void drawGlyph(const scene::Text& text, const Fonts::GlyphColors& colors,
                   pugi::xml_node element);
    void drawPicture(const scene::Text& text, const Fonts::GlyphPicture& picture,
                     pugi::xml_node element);

    ImageLinks& links_;
    Canvas& canvas_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
