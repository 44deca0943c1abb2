#include "Fonts/VariedFont.h"

#include "Fonts/internal/OpenTypeFace.h"

#include <utility>

namespace Fonts {

VariedFont::VariedFont(std::unique_ptr<const OpenTypeFace> face) : OpenTypeFont(std::move(face)) {}

VariedFont::~VariedFont() = default;

PictureFont::PictureFont(std::unique_ptr<const OpenTypeFace> face)
    : OpenTypeFont(std::move(face)) {}

PictureFont::~PictureFont() = default;

}  // namespace Fonts
