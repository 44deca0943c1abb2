#pragma once

#include "Core/ByteArray.h"

#include <cstdint>
#include <span>
#include <string>

namespace Fonts {

/// Whether the bytes begin as a Type 1 font, in segments or not.
[[nodiscard]] bool isType1(std::span<const std::uint8_t> bytes);

/// A Type 1 program in segments: a clear one, an encrypted one in binary form, a clear one, the
/// end. Takes a program in segments, or one without, its encrypted part binary or hexadecimal.
/// All lines of the clear parts end with LF. Raises `FontException`, naming `fileName`, for a
/// program that is cut off or has no encrypted part.
[[nodiscard]] Core::ByteArray type1Segments(std::span<const std::uint8_t> bytes,
                                            const std::string& fileName);

}  // namespace Fonts
