#pragma once

#include "Core/ByteArray.h"
#include "Fonts/internal/HarfBuzz.h"

#include <cstdint>
#include <span>
#include <string>

namespace Fonts {

/// A TrueType file of `face` that holds the outlines of glyph 0, of `glyphs` and of the parts
/// that these are composed of. All glyphs keep their numbers; numbers that the face does not have
/// are passed over. Only what drawing glyphs takes is in the file, and the whole 'cmap'. Raises
/// `FontException`, naming `fileName`, for a face whose tables contradict each other.
[[nodiscard]] Core::ByteArray subsetTrueType(hb_face_t* face, std::span<const std::int32_t> glyphs,
                                             bool keepHints, const std::string& fileName);

}  // namespace Fonts
