#pragma once

#include "Fonts/Export.h"
#include "Fonts/FontProgram.h"
#include "Fonts/GlyphColors.h"

#include <memory>

namespace Fonts {

class OpenTypeFace;

/// What fonts in TrueType and OpenType files have in common, whatever their outlines.
class FONTS_API OpenTypeFont : public FontProgram {
public:
    ~OpenTypeFont() override;

    [[nodiscard]] const FontMetrics& getMetrics() const override;
    [[nodiscard]] bool isEmbeddable() const override;
    /// The file as it is; a face of a collection as a file of its own.
    [[nodiscard]] Core::ByteArray getProgramData() const override;

    [[nodiscard]] std::vector<GlyphId> mapGlyphs(const FontScript& run) const override;
    /// "g" and the number for a glyph that the font does not name.
    [[nodiscard]] Core::String getGlyphName(GlyphId glyph) const override;
    [[nodiscard]] std::optional<int> getKerning(GlyphId first, GlyphId second,
                                                bool secondIsMark) const override;
    [[nodiscard]] float getAdvance(GlyphId glyph) const override;
    void decomposeGlyph(GlyphId glyph, GlyphSink& sink) const override;
    [[nodiscard]] std::optional<FontFile> getFile() const override;

    [[nodiscard]] std::uint32_t getGlyphCount() const;
    /// Whether the font's licence bits let a document carry only some of its glyphs.
    [[nodiscard]] bool isSubsettable() const;
    /// Whether it has axes, such as weight, along which its outlines change.
    [[nodiscard]] bool isVariable() const;
    /// Whether glyphs may have colours of their own.
    [[nodiscard]] bool hasColors() const;
    [[nodiscard]] GlyphColors getColors(GlyphId glyph) const;
    /// Of its coordinates: outlines are exact in these units.
    [[nodiscard]] std::uint32_t getUnitsPerEm() const;

protected:
    explicit OpenTypeFont(std::unique_ptr<const OpenTypeFace> face);

    [[nodiscard]] const OpenTypeFace& face() const { return *face_; }

private:
    std::unique_ptr<const OpenTypeFace> face_;
};

}  // namespace Fonts
