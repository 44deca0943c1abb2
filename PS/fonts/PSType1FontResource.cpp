#include "PS/fonts/PSType1FontResource.h"

#include "PS/internal/KernedPieces.h"
#include "PS/internal/Type1Program.h"

#include <utility>

namespace Drawing::PS {

PSType1FontResource::PSType1FontResource(const Font& font,
                                         Core::SmartPtr<Fonts::FontProgram> program,
                                         Core::String family, bool kernText)
    : PSOneByteFontResource(font, std::move(program), std::move(family), kernText),
      moves(std::make_unique<NumberTexts>()) {}

PSType1FontResource::~PSType1FontResource() = default;

void PSType1FontResource::writeText(const Core::SmartPtr<Core::IO::Stream>& stream,
                                    const Core::String& text, float fontSize, float spacing) {
    const KernedPieces pieces{*fontProgram, fontSize, spacing, *moves};
    std::string operand = kerning ? "[" : "(";
    for (const auto& [run, glyphs] : mapText(text)) {
        for (std::size_t i = 0; i < glyphs.size(); ++i) {
            if (kerning) {
                pieces.appendMove(run, glyphs, i, operand);
                operand += '(';
            }
            appendEscape(codeOf(glyphs[i]), operand);
            if (kerning)
                operand += ')';
        }
    }
    stream->write(operand += kerning ? "]" : ")");
}

void PSType1FontResource::writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) {
    const Core::ByteArray program = fontProgram->getProgramData();
    if (!program.empty())
        writeType1Program(*stream, program, getResourceName(), namesInCodeOrder());
}

}  // namespace Drawing::PS
