#pragma once

#include "Fonts/TTFFont.h"
#include "Fonts/internal/HarfBuzz.h"

#include <cstdint>
#include <span>
#include <string>

namespace Fonts {

struct TrueTypeChoice {
    bool keepHints = true;
    bool keepAllGlyphs = false;
};

/// Glyph 0, `glyphs` and their parts, numbered anew; see `TTFFont::compactSubset`. Raises
/// `FontException`, naming `fileName`, for a face whose tables contradict each other.
[[nodiscard]] CompactSubset compactTrueType(hb_face_t* face, std::span<const std::uint32_t> glyphs,
                                            const TrueTypeChoice& choice,
                                            const std::string& fileName);

}  // namespace Fonts
