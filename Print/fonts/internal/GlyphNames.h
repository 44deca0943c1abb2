#pragma once

#include "Print/fonts/internal/GlyphTable.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Drawing::Print {

/// A glyph of a part under the name that its font's dictionaries know it by.
struct NamedGlyph {
    std::uint8_t code = 0;
    Fonts::FontProgram::GlyphId glyph = 0;
    std::string name;
    std::u32string text;
    bool tellsText = false;  ///< whether every reader takes the text from the name
};

/// Names that are taken by glyphs which others are composed of.
using ReservedNames = std::map<std::string, Fonts::FontProgram::GlyphId, std::less<>>;

/// Names for the glyphs of a part, each its own, in the order of the codes. They tell the text
/// wherever a name can (Adobe Glyph List Specification): "A", "uni0416", "u1D49C",
/// "uni00660069"; a second glyph of the same text is "uni0416." and its code, one without any
/// text "." and its code. A name in `reserved` goes to no other glyph.
[[nodiscard]] std::vector<NamedGlyph> nameGlyphs(const CodedPart& part,
                                                 const ReservedNames& reserved = {});

/// The name that StandardEncoding has for a code (PLRM E.6); empty for a code without one.
[[nodiscard]] std::string_view standardName(std::uint8_t code);

/// The UTF-16 units of a text; what is no character becomes U+FFFD.
[[nodiscard]] std::u16string toUtf16(std::u32string_view text);

}  // namespace Drawing::Print
