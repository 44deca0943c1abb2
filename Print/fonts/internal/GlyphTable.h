#pragma once

#include "Fonts/FontProgram.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Drawing::Print {

/// Which of a font's parts (fonts of at most 255 glyphs) shows a glyph, and with which character
/// code.
struct GlyphCode {
    std::uint16_t part;
    std::uint8_t code;

    friend bool operator==(const GlyphCode&, const GlyphCode&) = default;
};

/// A glyph in use, and the characters that it stands for.
struct CodedGlyph {
    Fonts::FontProgram::GlyphId glyph = 0;
    std::u32string text;
};

/// The glyphs of one part by their codes; null for a code without one, as 0 always is.
using CodedPart = std::array<const CodedGlyph*, 256>;

/// Gives each pair of glyph and text a code, the same ever after. A printable ASCII character has
/// its own code where that is free, so that plain text can be read in the document.
class GlyphTable {
public:
    using GlyphId = Fonts::FontProgram::GlyphId;

    GlyphTable() = default;
    GlyphTable(const GlyphTable&) = delete;
    GlyphTable& operator=(const GlyphTable&) = delete;
    ~GlyphTable() = default;

    GlyphCode encode(GlyphId glyph, char32_t character) {
        if (glyph < first_.size() && first_[glyph].character == character) [[likely]]
            return first_[glyph].code;
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
    struct Use {
        std::u32string text;
        GlyphCode code;
    };

    GlyphCode add(GlyphId glyph, std::u32string_view text);
    [[nodiscard]] std::uint8_t freeCode(std::u32string_view text) const;
    void rememberFirst(GlyphId glyph, char32_t character, GlyphCode code);

    std::vector<Plain> first_;  ///< by glyph: the character that it stood for first
    std::unordered_map<GlyphId, std::vector<Use>> uses_;
    std::deque<CodedGlyph> glyphs_;  ///< which stay where they are
    std::vector<CodedPart> parts_;
    std::size_t inLastPart_ = 0;
};

}  // namespace Drawing::Print
