#include "Fonts/CffFont.h"

#include "Fonts/internal/OpenTypeFace.h"

#include <utility>

namespace Fonts {

CffFont::CffFont(std::unique_ptr<const OpenTypeFace> face) : OpenTypeFont(std::move(face)) {}

CffFont::~CffFont() = default;

}  // namespace Fonts
