#pragma once

#include "Print/internal/TextBuffer.h"

#include <cstdint>
#include <span>

namespace Drawing::Print {

/// Appends a base-85 string literal (PLRM 3.2.2) that holds `bytes`, in lines that no reader of
/// structure comments takes for one.
void writeByteString(std::span<const std::uint8_t> bytes, TextBuffer& out);

}  // namespace Drawing::Print
