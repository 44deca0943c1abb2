#pragma once

#include "PS/fonts/PSFontResource.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>

namespace Drawing::PS {

class NumberTexts;

/// A TrueType font as a Type 0 font over Type 42 fonts of 256 glyphs each (PLRM 5.10, 5.8): text
/// is written in two-byte codes, block and glyph within the block, so one resource shows every
/// glyph of the font. Glyph ids from 2048 have no code in this form.
class PS_API PSTTFFontResource : public PSFontResource {
public:
    PSTTFFontResource(const Font& font, Core::SmartPtr<Fonts::FontProgram> program,
                      Core::String family, bool kernText);
    ~PSTTFFontResource() override;

    /// A TrueType resource never fills up: always `nothingNew`.
    int addGlyphs(const Core::String& text) override;
    /// Writes only the begin comment for a font that may not be embedded.
    void writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) override;
    void writeText(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text,
                   float fontSize, float spacing) override;
    [[nodiscard]] int getKind() const override { return trueType; }
    /// The resource key: the font's hash key, "+" and the number.
    [[nodiscard]] Core::String getName() const override { return resourceKey; }
    void assignCode(std::int32_t glyph) override;

private:
    void use(Fonts::FontProgram::GlyphId glyph);
    void appendGlyph(Fonts::FontProgram::GlyphId glyph, std::string& out) const;

    static constexpr std::size_t kQuickGlyphs = 2048;

    std::set<std::int32_t> usedGlyphs;             ///< a missing glyph counts as -1
    std::array<bool, kQuickGlyphs> quickGlyphs{};  ///< whether a low glyph is in the set
    std::unique_ptr<NumberTexts> moves;
};

}  // namespace Drawing::PS
