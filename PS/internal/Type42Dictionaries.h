#pragma once

#include "Core/Stream.h"
#include "PS/fonts/TTFToType42.h"

#include <string>

namespace Drawing::PS {

/// Writes the Type 42 font of every block of 256 glyphs, "{name}_00", "{name}_01" ..., which share
/// the array "{name}_sfnts", and the Type 0 font "{name}_font" over them. Codes are two bytes:
/// the block, and the glyph within it, which every block names c00 to cFF.
void writeType42Dictionaries(Core::IO::Stream& stream, const std::string& name,
                             const TTFToType42& font);

}  // namespace Drawing::PS
