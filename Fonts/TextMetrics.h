#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/Export.h"
#include "Fonts/FontProgram.h"

namespace Fonts {

/// What a line of text takes up, in the user units in which the font's size is given. Heights are
/// measured upwards from the baseline.
struct TextMetrics {
    float width = 0;  ///< from the first glyph's origin to where a further glyph would stand
    float ascent = 0;
    float descent = 0;  ///< below the baseline, hence negative as a rule
    float capHeight = 0;
    float xHeight = 0;
    float underlinePosition = 0;
    float underlineThickness = 0;
};

/// Measures `text` as a document with the same kerning shows it: with `spacing` more than its
/// advance behind each glyph. An empty text gives the metrics of the font alone.
///
///     const Fonts::TextMetrics metrics = Fonts::measureText(font, u"Total");
///     document->drawText(u"Total", 0, right - metrics.width, baseline, 0, false);
///
/// Raises `FontNotFoundException` if nobody knows the font. A font that no document uses yet is
/// looked up anew each time; whoever measures many texts holds its program (`FontManager::getFont`)
/// and measures with that.
FONTS_API TextMetrics measureText(const Core::SmartPtr<Drawing::Font>& font,
                                  const Core::String& text, float spacing = 0, bool kerning = true);
/// The same with a font program, `size` units per em.
FONTS_API TextMetrics measureText(const FontProgram& program, float size, const Core::String& text,
                                  float spacing = 0, bool kerning = true);

}  // namespace Fonts
