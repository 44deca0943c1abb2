#pragma once

#include "Core/SmartPtr.h"
#include "Fonts/FontProgram.h"
#include "Fonts/internal/FontBytes.h"

#include <cstdint>

namespace Fonts {

/// Opens a font of any kind that the library reads. Raises `FontException` for any other file, for
/// a damaged one, and for a face that the file does not have.
[[nodiscard]] Core::SmartPtr<FontProgram> loadFont(FontBytes bytes, std::uint32_t faceIndex);

}  // namespace Fonts
