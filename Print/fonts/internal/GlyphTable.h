#pragma once

#include "Fonts/FontProgram.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Drawing::Print {

/// Which of a font's parts (fonts of at most 255 glyphs) shows a glyph, and with which character
/// code.
struct GlyphCode {
    std::uint16_t part;
    std::uint8_t code;

    friend bool operator==(const GlyphCode&, const GlyphCode&) = default;
};

/// A glyph in use: what it looks like, what it stands for and what its part calls it.
struct CodedGlyph {
    Fonts::FontProgram::GlyphId glyph = 0;
    std::u32string text;
    std::string name;
};

/// Glyphs of one part by their codes; null for a code without one. Code 0 is never used.
using CodedPart = std::array<const CodedGlyph*, 256>;

/// Gives each pair of glyph and text a code, the same ever after. A printable ASCII character has
/// its own code wherever that is free, so that plain text can be read in the document.
class GlyphTable {
public:
    using GlyphId = Fonts::FontProgram::GlyphId;

    GlyphCode encode(GlyphId glyph, char32_t character) {
        if (glyph < plain_.size() && plain_[glyph].character == character) [[likely]]
            return plain_[glyph].code;
        return encode(glyph, std::u32string_view(&character, 1));
    }
    GlyphCode encode(GlyphId glyph, std::u32string_view text);

    [[nodiscard]] const std::vector<CodedPart>& parts() const { return parts_; }

private:
    static constexpr char32_t kNone = 0xFFFFFFFF;
    struct Plain {
        char32_t character = kNone;
        GlyphCode code{};
    };

    GlyphCode add(GlyphId glyph, std::u32string_view text);
    [[nodiscard]] std::uint8_t freeCode(std::u32string_view text) const;
    [[nodiscard]] std::string nameFor(std::u32string_view text, std::uint8_t code) const;
    void remember(GlyphId glyph, char32_t character, GlyphCode code);

    std::vector<Plain> plain_;  ///< by glyph: the character that it stood for first
    std::map<std::pair<GlyphId, std::u32string>, GlyphCode> codes_;
    std::deque<CodedGlyph> glyphs_;
    std::vector<CodedPart> parts_;
    std::size_t inLastPart_ = 0;
};

}  // namespace Drawing::Print
