#pragma once

#include "Core/Unicode.h"
#include "Fonts/FontProgram.h"
#include "Fonts/FontScript.h"

#include <cstddef>
#include <vector>

namespace Fonts {

/// The answer of `glyphOf` for each character of the run.
template <class GlyphOf>
std::vector<FontProgram::GlyphId> mapCharacters(const FontScript& run, GlyphOf glyphOf) {
    std::vector<FontProgram::GlyphId> glyphs;
    glyphs.reserve(run.text.length());
    for (std::size_t at = 0; at < run.text.length();)
        glyphs.push_back(glyphOf(Core::Unicode::next(run.text.view(), at)));
    return glyphs;
}

}  // namespace Fonts
