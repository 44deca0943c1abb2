// A standard font in the prolog:
//
//   /F1 /Helvetica      the name on the pages and the interpreter's own font
//   [/A                 the glyph names in the order of their codes, as many as were given out
//   /V
//   ]
//   makeAdobeStdFont    copies the font with this encoding (PLRM 5.9.1)
//
//   /HelveticaKern      with kerning: pairs and moves for the prolog's kernfunc
//   [
//   [ /A /V -70 ]
//   ] def

#include "PS/fonts/PSStdAdobeFontResource.h"

#include "Core/NumberText.h"
#include "Core/StringFormatStream.h"
#include "Fonts/UnicodeRanges.h"
#include "PS/internal/AppendNumber.h"

#include <utility>

namespace Drawing::PS {

using Core::StringFormatStream;

PSStdAdobeFontResource::PSStdAdobeFontResource(const Font& font,
                                               Core::SmartPtr<Fonts::FontProgram> program,
                                               Core::String family, bool kernText)
    : PSOneByteFontResource(font, std::move(program), std::move(family), kernText) {}

PSStdAdobeFontResource::~PSStdAdobeFontResource() = default;

void PSStdAdobeFontResource::writeText(const Core::SmartPtr<Core::IO::Stream>& stream,
                                       const Core::String& text, float /*fontSize*/,
                                       float spacing) {
    std::string operand;
    appendNumber(spacing, operand);
    operand += " (";
    for (const auto& [run, glyphs] : mapText(text)) {
        for (const GlyphId glyph : glyphs)
            appendEscape(codeOf(glyph), operand);
        if (kerning)
            rememberKerning(run, glyphs);
    }
    stream->write(operand += ")");
}

void PSStdAdobeFontResource::rememberKerning(const Fonts::FontScript& run,
                                             const std::vector<GlyphId>& glyphs) {
    for (std::size_t i = 1; i < glyphs.size(); ++i) {
        const bool mark = i < run.text.length() && Fonts::UnicodeRanges::isMark(run.text[i]);
        if (!isNewQuestion(codeOf(glyphs[i - 1]), codeOf(glyphs[i]), mark))
            continue;
        if (const auto kern = fontProgram->getKerning(glyphs[i - 1], glyphs[i], mark))
            kerningPairs[{static_cast<std::int32_t>(glyphs[i - 1]),
                          static_cast<std::int32_t>(glyphs[i])}] = *kern;
    }
}

/// The same question as last time has the same answer, which stands in the table already. A glyph
/// may serve a letter and a mark, and the later answer counts. Codes beyond a byte, which only a
/// text that is not asked whether it fits may have, are asked about each time.
bool PSStdAdobeFontResource::isNewQuestion(std::uint32_t first, std::uint32_t second, bool mark) {
    if (first >= kCodes || second >= kCodes)
        return true;
    if (askedPairs.empty())
        askedPairs.resize(kCodes * kCodes);
    const Asked asked = mark ? Asked::asMark : Asked::asLetter;
    return std::exchange(askedPairs[first * kCodes + second], asked) != asked;
}

void PSStdAdobeFontResource::writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) {
    const Core::String head = StringFormatStream(u"/{0} /{1}\n") << getResourceName() << getName();
    std::string text = head.toUtf8() + "[";
    for (const Core::String& name : namesInCodeOrder())
        text += "/" + name.toUtf8() + "\n";
    stream->write(text += "]\nmakeAdobeStdFont\n");
    if (kerning)
        writeKerning(*stream);
}

/// The table bears the font's name, not the resource's: of two resources of one font, the later
/// table wins.
void PSStdAdobeFontResource::writeKerning(Core::IO::Stream& stream) const {
    const Core::String head = StringFormatStream(u"\n/{0}Kern\n[\n") << getName();
    std::string text = head.toUtf8();
    for (const auto& [pair, kern] : kerningPairs) {
        const Core::String line = StringFormatStream(u"[ /{0} /{1} {2} ]\n")
                                  << fontProgram->getGlyphName(static_cast<GlyphId>(pair.first))
                                  << fontProgram->getGlyphName(static_cast<GlyphId>(pair.second))
                                  << -kern;
        text += line.toUtf8();
    }
    stream.write(text += "] def\n\n");
}

}  // namespace Drawing::PS
