#include "PS/internal/KernedPieces.h"

#include "Fonts/UnicodeRanges.h"
#include "PS/internal/AppendNumber.h"

namespace Drawing::PS {

void KernedPieces::appendMove(const Fonts::FontScript& run,
                              const std::vector<Fonts::FontProgram::GlyphId>& glyphs,
                              std::size_t index, std::string& out) const {
    if (index == 0)
        return;
    const bool mark = index < run.text.length() && Fonts::UnicodeRanges::isMark(run.text[index]);
    if (const auto kern = program.getKerning(glyphs[index - 1], glyphs[index], mark))
        moves.append(double{spacing} - *kern * double{fontSize} / 1000, out);
    else if (spacing != 0)
        appendNumber(spacing, out);
}

}  // namespace Drawing::PS
