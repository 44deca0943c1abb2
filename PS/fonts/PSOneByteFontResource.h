#pragma once

#include "Fonts/FontScript.h"
#include "PS/fonts/PSFontResource.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Drawing::PS {

/// A font whose glyphs are shown by codes of one byte, given out in the order of first use: 0, 1,
/// 2 ... `addGlyphs` keeps them below 256; the first text of a font, which is not asked, may go
/// beyond.
class PS_API PSOneByteFontResource : public PSFontResource {
public:
    static constexpr std::size_t kCodes = 256;

    ~PSOneByteFontResource() override;

    int addGlyphs(const Core::String& text) override;
    void assignCode(std::int32_t glyph) override;

protected:
    using PSFontResource::PSFontResource;
    using GlyphId = Fonts::FontProgram::GlyphId;

    /// A piece of text in one script and its glyphs.
    struct MappedRun {
        Fonts::FontScript run;
        std::vector<GlyphId> glyphs;
    };

    /// The runs of `text`; valid until the next text. The text just asked about is likely to be
    /// written, so its runs are kept.
    const std::vector<MappedRun>& mapText(const Core::String& text);
    /// The code of `glyph`, given out now if it had none.
    std::uint32_t codeOf(GlyphId glyph);
    /// Appends a code as it stands in a string: a backslash and three octal digits, or two where
    /// the first would be 0.
    static void appendEscape(std::uint32_t code, std::string& out);
    /// The names of the glyphs in the order of their codes.
    [[nodiscard]] std::vector<Core::String> namesInCodeOrder() const;

    std::map<std::int32_t, std::uint32_t> glyphCodes;

private:
    static constexpr std::uint32_t kNoCode = 0xFFFFFFFF;

    [[nodiscard]] std::uint32_t findCode(std::int32_t glyph) const;

    std::vector<std::uint32_t> quickCodes;  ///< by glyph, those of low number
    Core::String mappedText;
    std::vector<MappedRun> mappedRuns;
};

}  // namespace Drawing::PS
