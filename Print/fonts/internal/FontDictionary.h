#pragma once

#include "Fonts/FontProgram.h"
#include "Print/fonts/internal/GlyphNames.h"
#include "Print/fonts/internal/ProgramText.h"

#include <array>
#include <span>
#include <string>
#include <vector>

namespace Drawing::Print {

/// Left, bottom, right, top.
using FontBox = std::array<int, 4>;

/// A box around all glyphs of the parts, in 1/1000 em.
[[nodiscard]] FontBox boxAround(const Fonts::FontProgram& program,
                                std::span<const CodedPart> parts);

/// A length in 1/1000 em as a number of ems.
[[nodiscard]] std::string thousandths(int length);
/// "[left bottom right top]" in 1/1000 em.
[[nodiscard]] std::string toText(const FontBox& box);

/// What the dictionaries of all kinds of fonts have in common (PLRM 5.2), in the order of writing.
namespace FontDictionary {

/// Opens the dictionary: kind, the font's own name, `matrix` and box ("[a b c d e f]").
void begin(ProgramText& out, int fontType, const std::string& fontName, const std::string& matrix,
           const std::string& box);
/// /Encoding: StandardEncoding and what differs from it.
void encoding(ProgramText& out, const std::vector<NamedGlyph>& glyphs);
/// /FontInfo with the text of all glyphs whose names do not tell it; nothing if there are none.
void unicode(ProgramText& out, const std::vector<NamedGlyph>& glyphs);
/// Closes the dictionary and defines the font `partName`.
void end(ProgramText& out, const std::string& partName);

}  // namespace FontDictionary

}  // namespace Drawing::Print
