#pragma once

#include "Print/fonts/internal/GlyphNames.h"
#include "Print/fonts/internal/PrintFont.h"
#include "Print/fonts/internal/ProgramText.h"

#include <map>

namespace Drawing::Print {

/// Any outlines, those of CFF fonts and CID-keyed ones too, as charstrings of a plain Type 1 font.
class OutlineFont : public PrintFont {
public:
    /// `outlines` draws the glyphs that `program` measures: itself, or another font, which is
    /// asked by the names of the glyphs. `unitsPerEm`: its coordinates are whole numbers of these.
    OutlineFont(const Core::SmartPtr<Fonts::FontProgram>& program, std::uint32_t number,
                std::uint32_t glyphCount, const Core::SmartPtr<Fonts::FontProgram>& outlines,
                std::uint32_t unitsPerEm);
    ~OutlineFont() override;

protected:
    void define(Core::IO::Stream& stream) const override;

private:
    [[nodiscard]] GlyphId outlineOf(GlyphId glyph) const;
    [[nodiscard]] std::vector<std::uint8_t> charString(GlyphId glyph) const;
    void defineCharStrings(ProgramText& out, const std::vector<NamedGlyph>& glyphs) const;

    Core::SmartPtr<Fonts::FontProgram> outlines_;
    std::uint32_t unitsPerEm_;
    std::map<std::string, GlyphId> byName_;  ///< of `outlines_`, if that is another font
};

}  // namespace Drawing::Print
