#pragma once

#include "Core/SmartPtr.h"
#include "Fonts/FontProgram.h"
#include "Fonts/internal/FontBytes.h"

#include <cstdint>

namespace Fonts {

/// Opens a font of any kind that the library reads. Raises `FontException` for any other file, for
/// a damaged one, and for a face that the file does not have.
/// A variable font is set to `axes`: a place beyond an axis is its end, and an axis that the font
/// does not have is passed over.
[[nodiscard]] Core::SmartPtr<FontProgram> loadFont(FontBytes bytes, std::uint32_t faceIndex,
                                                   const std::vector<FontAxis>& axes = {});

}  // namespace Fonts
