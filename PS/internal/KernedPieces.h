#pragma once

#include "Fonts/FontProgram.h"
#include "Fonts/FontScript.h"
#include "PS/internal/NumberTexts.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Drawing::PS {

/// The moves between the strings of a kerned run, as Type 1 and TrueType runs carry them.
struct KernedPieces {
    const Fonts::FontProgram& program;
    float fontSize;
    float spacing;  ///< user units
    NumberTexts& moves;

    /// Appends the move before the glyph at `index`: spacing less the pair's kerning, spacing
    /// alone if it is not 0, or nothing. There is none before the first glyph of a run.
    void appendMove(const Fonts::FontScript& run,
                    const std::vector<Fonts::FontProgram::GlyphId>& glyphs, std::size_t index,
                    std::string& out) const;
};

}  // namespace Drawing::PS
