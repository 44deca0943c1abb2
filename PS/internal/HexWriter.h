#pragma once

#include "Core/Stream.h"

#include <cstdint>
#include <span>

namespace Drawing::PS {

/// Writes `bytes` as pairs of upper-case hexadecimal digits (ASCIIHexDecode, PLRM 3.13.3), a line
/// feed after the byte at every multiple of 40 but 0: the first line holds 41 bytes, the others
/// 40. The end mark ">" is the caller's.
void writeHex(Core::IO::Stream& stream, std::span<const std::uint8_t> bytes);

}  // namespace Drawing::PS
