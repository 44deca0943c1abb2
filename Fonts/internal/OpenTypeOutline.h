#pragma once

#include "Fonts/internal/HarfBuzz.h"
#include "Fonts/internal/OutlineRecorder.h"

#include <cstdint>

namespace Fonts {

/// The outline of a glyph, quadratic curves as cubic ones. `unit`: 1/1000 em to one font unit.
[[nodiscard]] OutlineRecorder openTypeOutline(hb_font_t* font, std::uint32_t glyph, float unit);

}  // namespace Fonts
