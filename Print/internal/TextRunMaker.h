#pragma once

#include "Core/String.h"
#include "Drawing/SizeF.h"
#include "Print/internal/FontStore.h"
#include "Print/internal/TextRun.h"

#include <span>
#include <vector>

namespace Drawing::Print {

/// Glyphs of a text before they have codes: what a line of text consists of.
struct GlyphLine {
    std::vector<Fonts::FontProgram::GlyphId> glyphs;
    std::vector<char32_t> characters;  ///< one for each glyph
    std::vector<float> moves;          ///< before each glyph, in user units
};

/// The glyphs of `text` in its order, kerned if asked for.
void layOut(const Core::String& text, FontStore::Entry& font, double size, bool kerning,
            GlyphLine& line);
/// Gives the line's glyphs their codes.
void encode(const GlyphLine& line, FontStore::Entry& font, TextRun& run);
/// The same for glyphs at places of their own, as far as they stand on one baseline, from `from`
/// on; the index of the first glyph that does not.
std::size_t encode(std::span<const Fonts::FontProgram::GlyphId> glyphs,
                   std::span<const XPointF> positions, std::span<const Core::String> texts,
                   std::size_t from, FontStore::Entry& font, TextRun& run);

/// Around the outlines of a glyph, in 1/1000 em, y upwards; for fonts without outlines its advance
/// between descent and ascent.
[[nodiscard]] Box glyphBox(const Fonts::FontProgram& program, Fonts::FontProgram::GlyphId glyph);

}  // namespace Drawing::Print
