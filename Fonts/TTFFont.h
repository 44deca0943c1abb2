#pragma once

#include "Fonts/OpenTypeFont.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Fonts {

/// A TrueType file that holds few glyphs of a font, numbered anew.
struct CompactSubset {
    Core::ByteArray file;
    std::vector<std::uint32_t> numbers;  ///< those of the glyphs asked for, in their order
    /// Even offsets where tables and glyphs begin, ascending, and the end: where the file may be
    /// cut into the strings of a Type 42 font (Adobe Technical Note 5012).
    std::vector<std::size_t> breaks;
};

/// A font with TrueType outlines: a file of its own or a face of a collection.
class FONTS_API TTFFont : public OpenTypeFont {
public:
    /// Flag of `subset`: leaves the hinting programs out.
    static constexpr int kDropHints = 1;

    explicit TTFFont(std::unique_ptr<const OpenTypeFace> face);
    ~TTFFont() override;

    [[nodiscard]] FontKind getKind() const override { return FontKind::trueType; }

    /// A TrueType file reduced to glyph 0, `glyphs` and the parts that these are composed of, with
    /// all glyphs keeping their numbers; its tables end behind the last one of them. -1 and other
    /// numbers that the font does not have are passed over. A font whose licence forbids subsets
    /// keeps all its glyphs. `flags`: 0 or `kDropHints`. The same glyphs give the same bytes.
    /// Raises `FontException` for a font whose tables contradict each other.
    [[nodiscard]] Core::ByteArray subset(const std::vector<std::int32_t>& glyphs, int flags) const;

    /// The same with the glyphs numbered anew, without gaps, glyph 0 remaining what it is, and
    /// with no more tables than a Type 42 font needs. `glyphs` must be numbers that the font has.
    [[nodiscard]] CompactSubset compactSubset(const std::vector<GlyphId>& glyphs, int flags) const;
};

}  // namespace Fonts
