#pragma once

#include "PS/fonts/PSOneByteFontResource.h"

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace Drawing::PS {

/// One of the fonts that every PostScript interpreter has: only a new encoding of it is defined,
/// and with kerning on a table of the pairs that the document shows.
class PS_API PSStdAdobeFontResource : public PSOneByteFontResource {
public:
    PSStdAdobeFontResource(const Font& font, Core::SmartPtr<Fonts::FontProgram> program,
                           Core::String family, bool kernText);
    ~PSStdAdobeFontResource() override;

    void writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) override;
    void writeText(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text,
                   float fontSize, float spacing) override;
    [[nodiscard]] int getKind() const override { return standard; }

private:
    void rememberKerning(const Fonts::FontScript& run, const std::vector<GlyphId>& glyphs);
    [[nodiscard]] bool isNewQuestion(std::uint32_t first, std::uint32_t second, bool mark);
    void writeKerning(Core::IO::Stream& stream) const;

    /// As which of the two the second glyph of a pair was asked for last.
    enum class Asked : std::uint8_t { never, asLetter, asMark };

    /// 1/1000 em, positive = closer. By signed numbers: the missing glyph, -1, comes first.
    std::map<std::pair<std::int32_t, std::int32_t>, int> kerningPairs;
    std::vector<Asked> askedPairs;  ///< by two codes
};

}  // namespace Drawing::PS
