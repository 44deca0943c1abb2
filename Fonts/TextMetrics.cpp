#include "Fonts/TextMetrics.h"

#include "Core/Unicode.h"
#include "Fonts/FontManager.h"
#include "Fonts/FontScriptIterator.h"
#include "Fonts/UnicodeRanges.h"

#include <vector>

namespace Fonts {

namespace {

constexpr double kEm = 1000;

/// Marks beyond the first plane are kerned like letters, as they are when text is drawn.
bool isMark(char32_t character) {
    return character < Core::Unicode::kFirstSupplementary &&
           UnicodeRanges::isMark(static_cast<char16_t>(character));
}

/// The advances of a run of one script, less what its font moves pairs together by, in 1/1000 em.
double advanceOf(const FontProgram& program, const FontScript& run,
                 const std::vector<FontProgram::GlyphId>& glyphs, bool kerning) {
    double advance = 0;
    std::size_t at = 0;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const char32_t character =
            at < run.text.length() ? Core::Unicode::next(run.text.view(), at) : U' ';
        if (kerning && i > 0)
            advance -= program.getKerning(glyphs[i - 1], glyphs[i], isMark(character)).value_or(0);
        advance += double{program.getAdvance(glyphs[i])};
    }
    return advance;
}

}  // namespace

TextMetrics measureText(const FontProgram& program, float size, const Core::String& text,
                        float spacing, bool kerning) {
    double advance = 0;
    std::size_t count = 0;
    FontScriptIterator runs(text, 0);
    for (FontScript run; runs.next(run);) {
        const std::vector<FontProgram::GlyphId> glyphs = program.mapGlyphs(run);
        advance += advanceOf(program, run, glyphs, kerning);
        count += glyphs.size();
    }
    const double scale = size / kEm;
    const auto scaled = [scale](double length) { return static_cast<float>(length * scale); };
    const FontMetrics& font = program.getMetrics();
    TextMetrics metrics;
    metrics.width = static_cast<float>(advance * scale + static_cast<double>(count) * spacing);
    metrics.ascent = scaled(font.ascent);
    metrics.descent = scaled(font.descent);
    metrics.capHeight = scaled(font.capHeight);
    metrics.xHeight = scaled(font.xHeight);
    metrics.underlinePosition = scaled(font.underlinePosition);
    metrics.underlineThickness = scaled(font.underlineThickness);
    return metrics;
}

TextMetrics measureText(const Core::SmartPtr<Drawing::Font>& font, const Core::String& text,
                        float spacing, bool kerning) {
    return measureText(*FontManager::getFont(font), font->getFontSize(), text, spacing, kerning);
}

}  // namespace Fonts
