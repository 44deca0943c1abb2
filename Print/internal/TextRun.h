#pragma once

#include "Print/fonts/internal/PrintFont.h"
#include "Print/internal/Box.h"

#include <cstdint>
#include <vector>

namespace Drawing::Print {

/// Glyphs in a row along one baseline, as codes of one font.
struct TextRun {
    struct Glyph {
        GlyphCode code;
        float move = 0;  ///< beside the advance of the glyph before, in user units
    };

    const PrintFont* font = nullptr;
    double size = 0;
    Spot origin;
    double spacing = 0;  ///< behind each glyph, beside its advance
    std::vector<Glyph> glyphs;
    Box box;  ///< around the glyphs, in user space; empty unless it was asked for
};

}  // namespace Drawing::Print
