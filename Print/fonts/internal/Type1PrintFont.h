#pragma once

#include "Print/fonts/internal/GlyphNames.h"
#include "Print/fonts/internal/PrintFont.h"
#include "Print/fonts/internal/ProgramText.h"
#include "Print/fonts/internal/Type1Program.h"

namespace Drawing::Print {

/// A Type 1 program reduced to the glyphs in use, with its charstrings, subroutines and hints as
/// they are, as a plain dictionary (PLRM 5.2; Adobe Type 1 Font Format, chapter 2).
class Type1PrintFont : public PrintFont {
public:
    /// `source` draws the glyphs that `program` names and measures: its own program, or that of
    /// another font of the same design. It must be plain.
    Type1PrintFont(const Core::SmartPtr<Fonts::FontProgram>& program, std::uint32_t number,
                   std::uint32_t glyphCount, Type1Program source);
    ~Type1PrintFont() override;

protected:
    void define(Core::IO::Stream& stream) const override;

private:
    [[nodiscard]] const CharString::Bytes& charString(GlyphId glyph) const;
    [[nodiscard]] ReservedNames accentParts(const CharStringUse& use) const;
    void definePrivate(ProgramText& out, const CharStringUse& use) const;
    void defineCharStrings(ProgramText& out, const std::vector<NamedGlyph>& glyphs,
                           const ReservedNames& accents) const;
    void defineMetrics(ProgramText& out, const std::vector<NamedGlyph>& glyphs) const;

    Type1Program source_;
    float unit_;  ///< 1/1000 em to one unit of the source
};

}  // namespace Drawing::Print
