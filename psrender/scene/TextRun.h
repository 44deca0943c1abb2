#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/FontProgram.h"
#include "psrender/scene/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace psrender::scene {

/// One glyph of a run, laid out.
struct PlacedGlyph {
    std::uint32_t id = 0;  ///< of the run's program
    Point origin;          ///< in the run's space, y downwards
    double rotation = 0;   ///< degrees, clockwise, around the origin
    /// How much of the run's text it shows, in UTF-16 units; 0 if a glyph before it shows the same.
    std::uint32_t textLength = 1;

    friend bool operator==(const PlacedGlyph&, const PlacedGlyph&) = default;
};

/// Text in one font and size, laid out. The run's space is that of the element around it.
struct TextRun {
    Core::SmartPtr<Drawing::Font> font;          ///< under which `program` is found
    Core::SmartPtr<Fonts::FontProgram> program;  ///< never null
    std::shared_ptr<const void> registration{};  ///< keeps a font of the drawing's own known
    std::string standsFor{};                     ///< a family that is not installed; mostly empty
    double size = 0;                             ///< of the em, in the run's space
    Core::String text;                           ///< what the glyphs show, one after the other
    double spacing = 0;                          ///< behind each glyph, beside its advance
    /// Whether the glyphs are just what showing `text` from the first one's origin gives, with
    /// the font's own advances and kerning and `spacing`.
    bool isPlain = false;
    std::vector<PlacedGlyph> glyphs;
};

}  // namespace psrender::scene
