#pragma once

#include "Core/String.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Fonts {

/// A place on an axis of a variable font, such as "wght" at 650.
struct FontAxis {
    std::uint32_t tag = 0;  ///< its four letters, the first one in the highest byte
    float value = 0;

    friend bool operator==(const FontAxis&, const FontAxis&) = default;
};

/// The file behind a font program, for hosts that shape text themselves.
struct FontFile {
    Core::String name;
    std::uint32_t faceIndex = 0;          ///< in a collection, else 0
    std::span<const std::uint8_t> bytes;  ///< valid as long as the font program lives
    std::vector<FontAxis> axes{};         ///< where on its axes the program is; else at their usual
};

}  // namespace Fonts
