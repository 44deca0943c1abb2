#pragma once

#include "Core/String.h"

#include <cstdint>
#include <span>

namespace Fonts {

/// The file behind a font program, for hosts that shape text themselves.
struct FontFile {
    Core::String name;
    std::uint32_t faceIndex = 0;          ///< in a collection, else 0
    std::span<const std::uint8_t> bytes;  ///< valid as long as the font program lives
};

}  // namespace Fonts
