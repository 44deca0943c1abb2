#pragma once

#include "Core/Stream.h"

#include <cstdint>
#include <span>

namespace Drawing::PS {

/// Writes `bytes` as one string of an /sfnts array: hexadecimal, 32 bytes a line, a new string
/// after each 65504 bytes, fill to a multiple of four and the extra byte at the end.
void writeType42String(Core::IO::Stream& stream, std::span<const std::uint8_t> bytes);

}  // namespace Drawing::PS
