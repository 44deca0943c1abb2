#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <type_traits>

namespace Fonts {

struct FreeTypeDeleter {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

template <class Handle>
using FreeTypePtr = std::unique_ptr<std::remove_pointer_t<Handle>, FreeTypeDeleter>;

}  // namespace Fonts
