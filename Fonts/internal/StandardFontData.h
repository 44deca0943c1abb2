#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace Fonts {

/// Glyphs by number, in the order of the first character that each serves.
struct CharacterSet {
    std::span<const std::string_view> names;
    std::span<const char16_t> characters;  ///< ascending
    std::span<const std::uint16_t> glyphs;

    /// The glyph of a character, if there is one.
    [[nodiscard]] std::optional<std::uint32_t> find(char32_t character) const;
};

/// Kerning pairs by row: first glyphs that kern alike share a row, row 0 is empty.
struct KerningTable {
    std::span<const std::uint8_t> rows;      ///< by first glyph
    std::span<const std::uint16_t> starts;   ///< of each row, and the end of the last
    std::span<const std::uint16_t> seconds;  ///< ascending in each row
    std::span<const std::int16_t> kerning;   ///< 1/1000 em, positive = closer

    /// The value of a pair, if the font kerns it. `first` must be a glyph of the font.
    [[nodiscard]] std::optional<int> find(std::size_t first, std::size_t second) const;
};

/// One of the 14 fonts that every PostScript interpreter has. Lengths in 1/1000 em.
struct StandardFontData {
    std::string_view postScriptName;
    std::string_view familyName;
    std::string_view fullName;
    float ascent;
    float descent;
    float capHeight;
    float xHeight;
    float underlinePosition;
    float underlineThickness;
    float italicAngle;
    CharacterSet characterSet;
    std::span<const std::uint16_t> widths;
    const KerningTable* kerning;  ///< null if the font kerns nothing
};

/// All of them; in a family the regular face, bold, slanted, bold and slanted, in this order.
[[nodiscard]] std::span<const StandardFontData> standardFonts();

}  // namespace Fonts
