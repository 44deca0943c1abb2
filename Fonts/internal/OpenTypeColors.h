#pragma once

#include "Fonts/GlyphColors.h"
#include "Fonts/internal/HarfBuzz.h"

#include <cstdint>

namespace Fonts {

/// Layers of the font's first palette, else the largest picture. `unit`: 1/1000 em to one unit of
/// the font.
[[nodiscard]] GlyphColors openTypeColors(hb_font_t* font, std::uint32_t glyph, float unit);

}  // namespace Fonts
