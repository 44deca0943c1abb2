#pragma once

#include "Core/String.h"

#include <cstdint>

namespace Fonts {

/// A run of text in one script.
struct FontScript {
    Core::String text;
    std::uint32_t script =
        0;  ///< ISO 15924 code, four letters, first in the highest byte; 0 unknown
};

}  // namespace Fonts
