#include "PS/fonts/PSTTFFontResource.h"

#include "Core/StringFormatStream.h"
#include "Fonts/FontScriptIterator.h"
#include "PS/fonts/TTFToType42.h"
#include "PS/internal/KernedPieces.h"

#include <utility>

namespace Drawing::PS {

using Core::StringFormatStream;
using Fonts::FontProgram;

namespace {

constexpr int kBlock = 256;
constexpr std::size_t kUsualGlyph = 16;  // bytes of a glyph and its move

/// The block's byte: "00" and the block in decimal, a valid octal escape up to block 7.
void appendBlock(int block, std::string& out) {
    out += "\\00";
    if (block >= 0 && block < 10)
        out += static_cast<char>('0' + block);
    else
        out += std::to_string(block);
}

/// The byte within the block: as itself where it prints, else in octal.
void appendByte(int byte, std::string& out) {
    if (byte < 0) {
        const Core::String digits = StringFormatStream(u"\\{0:O03}") << byte;
        out += digits.toUtf8();
        return;
    }
    if (byte < 32 || byte > 126) {
        const auto digit = [&](int shift) { return static_cast<char>('0' + (byte >> shift & 7)); };
        out.append({'\\', digit(6), digit(3), digit(0)});
        return;
    }
    if (byte == '\\' || byte == '(' || byte == ')')
        out += '\\';
    out += static_cast<char>(byte);
}

}  // namespace

PSTTFFontResource::PSTTFFontResource(const Font& font, Core::SmartPtr<FontProgram> program,
                                     Core::String family, bool kernText)
    : PSFontResource(font, std::move(program), std::move(family), kernText),
      moves(std::make_unique<NumberTexts>()) {}

PSTTFFontResource::~PSTTFFontResource() = default;

int PSTTFFontResource::addGlyphs(const Core::String& /*text*/) {
    return nothingNew;
}

void PSTTFFontResource::assignCode(std::int32_t /*glyph*/) {}

/// With kerning on every glyph is a string of its own.
void PSTTFFontResource::appendGlyph(FontProgram::GlyphId glyph, std::string& out) const {
    const auto id = static_cast<std::int32_t>(glyph);
    if (kerning)
        out += '(';
    appendBlock(id / kBlock, out);
    appendByte(id % kBlock, out);
    if (kerning)
        out += ')';
}

void PSTTFFontResource::use(FontProgram::GlyphId glyph) {
    if (glyph < quickGlyphs.size() && std::exchange(quickGlyphs[glyph], true))
        return;
    usedGlyphs.insert(static_cast<std::int32_t>(glyph));
}

/// A character without a glyph shows glyph 0 twice over and then the code of glyph -1, as readers
/// of these files have always seen it.
void PSTTFFontResource::writeText(const Core::SmartPtr<Core::IO::Stream>& stream,
                                  const Core::String& text, float fontSize, float spacing) {
    for (const FontProgram::GlyphId glyph : fontProgram->mapGlyphs({text, 0}))
        use(glyph);
    const KernedPieces pieces{*fontProgram, fontSize, spacing, *moves};
    std::string operand;
    operand.reserve(kUsualGlyph * text.length());
    operand += kerning ? '[' : '(';
    Fonts::FontScriptIterator runs(text, 0);
    for (Fonts::FontScript run; runs.next(run);) {
        const std::vector<FontProgram::GlyphId> glyphs = fontProgram->mapGlyphs(run);
        for (std::size_t i = 0; i < glyphs.size(); ++i) {
            if (glyphs[i] == FontProgram::kMissingGlyph)
                operand += kerning ? "(\\000)(\\000)" : "\\000\\000";
            if (kerning)
                pieces.appendMove(run, glyphs, i, operand);
            appendGlyph(glyphs[i], operand);
        }
    }
    stream->write(operand += kerning ? "]" : ")");
}

void PSTTFFontResource::writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) {
    stream->write("%%BeginResource: font " + getName().toUtf8() + "\n");
    if (!fontProgram->isEmbeddable())
        return;
    const std::string name = getResourceName().toUtf8();
    Core::makeObject<TTFToType42>(fontProgram, usedGlyphs)->write(stream, getResourceName());
    stream->write("%%EndResource\n/" + name + " /" + name + "_font 0 makeTTFFont\n");
}

}  // namespace Drawing::PS
