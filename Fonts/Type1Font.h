#pragma once

#include "Fonts/Export.h"
#include "Fonts/FontProgram.h"

#include <memory>

namespace Fonts {

class Type1Face;

/// A Type 1 font with its program. Kerning comes from an AFM file beside the font file.
class FONTS_API Type1Font : public FontProgram {
public:
    /// `segments`: what `getProgramData` answers, unless the font's licence forbids it.
    Type1Font(std::unique_ptr<const Type1Face> face, Core::ByteArray segments);
    ~Type1Font() override;

    [[nodiscard]] const FontMetrics& getMetrics() const override;
    [[nodiscard]] FontKind getKind() const override { return FontKind::type1; }
    [[nodiscard]] bool isEmbeddable() const override;
    [[nodiscard]] Core::ByteArray getProgramData() const override {
        return isEmbeddable() ? segments_ : Core::ByteArray();
    }

    [[nodiscard]] std::vector<GlyphId> mapGlyphs(const FontScript& run) const override;
    [[nodiscard]] Core::String getGlyphName(GlyphId glyph) const override;
    [[nodiscard]] std::optional<int> getKerning(GlyphId first, GlyphId second,
                                                bool secondIsMark) const override;
    [[nodiscard]] float getAdvance(GlyphId glyph) const override;
    void decomposeGlyph(GlyphId glyph, GlyphSink& sink) const override;

    [[nodiscard]] std::uint32_t getGlyphCount() const;
    /// Whether the font's licence bits let a document carry only some of its glyphs.
    [[nodiscard]] bool isSubsettable() const;

private:
    std::unique_ptr<const Type1Face> face_;
    Core::ByteArray segments_;
};

}  // namespace Fonts
