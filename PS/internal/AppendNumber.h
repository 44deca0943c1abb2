#pragma once

#include "Core/NumberText.h"

#include <array>
#include <string>

namespace Drawing::PS {

/// Appends a number as PostScript reads it; raises `NumberRangeException` where it cannot.
void appendNumber(auto value, std::string& out) {
    // Only what is written is read.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
    std::array<char, Core::kMaxNumberText<decltype(value)>> text;
    out.append(text.data(), Core::writeNumber(text.data(), value));
}

}  // namespace Drawing::PS
