#pragma once

#include "Fonts/FontFile.h"
#include "Fonts/FontMetrics.h"
#include "Fonts/internal/FontBytes.h"
#include "Fonts/internal/HarfBuzz.h"
#include "Fonts/internal/OpenTypeKerning.h"
#include "Fonts/internal/SfntDirectory.h"

#include <array>
#include <cstdint>
#include <vector>

namespace Fonts {

/// One face of a TrueType or OpenType file, opened. It does not change, so several threads may
/// ask it at once.
class OpenTypeFace {
public:
    /// Raises `FontException` if the file does not hold the face, or is damaged.
    OpenTypeFace(FontBytes fontBytes, std::uint32_t index, std::vector<FontAxis> places = {});

    const FontBytes bytes;
    const std::uint32_t faceIndex;
    const std::vector<FontAxis> axes;  ///< where it is not at the usual place
    const SfntDirectory directory;
    const HarfBuzzPtr<hb_face_t> face;
    const HarfBuzzPtr<hb_font_t> font;  ///< scaled to its own units, at its place on the axes
    const std::uint32_t glyphCount;
    const float unit;  ///< 1/1000 em to one font unit
    const std::uint32_t licenceBits;
    const FontMetrics metrics;
    const OpenTypeKerning kerning;
    /// Glyphs of the first characters, which most text consists of; 0 where there is none.
    const std::array<std::uint32_t, 256> latinGlyphs;
};

}  // namespace Fonts
