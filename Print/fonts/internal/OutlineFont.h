#pragma once

#include "Fonts/OpenTypeFont.h"
#include "Print/fonts/internal/PrintFont.h"

namespace Drawing::Print {

/// CFF outlines, CID-keyed ones too, as charstrings of a plain Type 1 font.
class OutlineFont : public PrintFont {
public:
    OutlineFont(const Core::SmartPtr<Fonts::OpenTypeFont>& program, std::uint32_t number);
    ~OutlineFont() override;

protected:
    void define(Core::IO::Stream& stream) const override;

private:
    [[nodiscard]] std::vector<std::uint8_t> charString(GlyphId glyph) const;

    std::uint32_t unitsPerEm_;
};

}  // namespace Drawing::Print
