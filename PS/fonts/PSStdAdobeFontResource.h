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
    [[nodiscard]] bool isNewPair(std::uint32_t first, std::uint32_t second);
    void writeKerning(Core::IO::Stream& stream) const;

    /// 1/1000 em, positive = closer.
    std::map<std::pair<GlyphId, GlyphId>, int> kerningPairs;
    std::vector<std::uint8_t>
        askedPairs;  ///< by two codes, whether they are in the table if they kern
};

}  // namespace Drawing::PS
