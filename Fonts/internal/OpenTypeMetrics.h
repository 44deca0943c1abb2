#pragma once

#include "Fonts/FontMetrics.h"
#include "Fonts/internal/HarfBuzz.h"

#include <string>

namespace Fonts {

/// The names and heights of an OpenType font. `unit`: 1/1000 em to one font unit. `fileName`
/// stands in for a family name that the font lacks.
[[nodiscard]] FontMetrics openTypeMetrics(hb_font_t* font, float unit, const std::string& fileName);

/// A name that PostScript reads as one word: blanks and delimiters are left out.
[[nodiscard]] Core::String plainPostScriptName(const Core::String& name);

}  // namespace Fonts
