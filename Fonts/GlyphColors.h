#pragma once

#include "Core/ByteArray.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Fonts {

/// A colour of a font's palette.
struct PaletteColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
};

/// One of the glyphs that lie over each other in a glyph of a colour font.
struct GlyphLayer {
    std::uint32_t glyph = 0;
    std::optional<PaletteColor> color;  ///< nothing for that of the text
};

/// A glyph that is a picture, and where it stands: in 1/1000 em, y upwards from the baseline.
struct GlyphPicture {
    Core::ByteArray png;
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

/// How a glyph of a colour font looks; neither layers nor a picture for one that has no colours.
struct GlyphColors {
    std::vector<GlyphLayer> layers;  ///< the lowest first
    std::optional<GlyphPicture> picture;
    bool isSimplified = false;  ///< the font says more of it, such as gradients
};

}  // namespace Fonts
