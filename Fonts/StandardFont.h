#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Font.h"
#include "Fonts/Export.h"
#include "Fonts/FontProgram.h"

#include <array>
#include <cstdint>

namespace Fonts {

struct StandardFontData;

/// One of the 14 fonts that every PostScript interpreter has (Courier, Helvetica, Times, Symbol,
/// ZapfDingbats): names, figures and kerning without a program or outlines, so it works on a
/// machine without any font, and a document cannot carry it.
class FONTS_API StandardFont : public FontProgram {
public:
    /// The font with this PostScript name, whatever the case of its letters; null if it is none
    /// of the 14.
    static Core::SmartPtr<StandardFont> findByName(const Core::String& postScriptName);
    /// The member of the family "Courier", "Helvetica", "Times", "Symbol" or "ZapfDingbats" for a
    /// weight and slant; null for any other family. Weights from 600 are bold.
    static Core::SmartPtr<StandardFont> findByStyle(const Core::String& family, int weight,
                                                    Drawing::FontSlant slant);

    explicit StandardFont(const StandardFontData& data);
    ~StandardFont() override;

    [[nodiscard]] const FontMetrics& getMetrics() const override { return metrics_; }
    [[nodiscard]] FontKind getKind() const override { return FontKind::type1; }
    [[nodiscard]] bool isEmbeddable() const override { return false; }
    [[nodiscard]] Core::ByteArray getProgramData() const override { return {}; }

    [[nodiscard]] std::vector<GlyphId> mapGlyphs(const FontScript& run) const override;
    [[nodiscard]] Core::String getGlyphName(GlyphId glyph) const override;
    [[nodiscard]] std::optional<int> getKerning(GlyphId first, GlyphId second,
                                                bool secondIsMark) const override;
    [[nodiscard]] float getAdvance(GlyphId glyph) const override;

    [[nodiscard]] std::uint32_t getGlyphCount() const;

private:
    [[nodiscard]] GlyphId glyphOf(char32_t character) const;

    const StandardFontData& data_;
    FontMetrics metrics_;
    std::array<GlyphId, 128> asciiGlyphs_{};
};

}  // namespace Fonts
