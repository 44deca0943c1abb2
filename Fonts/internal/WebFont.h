#pragma once

#include "Fonts/internal/FontBytes.h"

#include <cstdint>
#include <span>

namespace Fonts {

/// Whether the bytes begin as a font that is packed for the web (WOFF or WOFF2).
[[nodiscard]] bool isWebFont(std::span<const std::uint8_t> bytes);

/// The TrueType or OpenType file in it. Raises `FontException` for a damaged one, and for one of
/// more than 64 MB.
[[nodiscard]] FontBytes unpackWebFont(const FontBytes& packed);

}  // namespace Fonts
