#pragma once

#include "Core/NumberText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Drawing::PS {

/// From a byte component to a PostScript number: 1/256, so that 255 becomes 0.99609375. All
/// writers scale alike, and every result has an exact decimal form.
inline constexpr double kByteScale = 0.00390625;

/// A byte component that prints scaled. There are only 256 texts, so each is made once.
struct ScaledByte {
    std::uint8_t value;
};

namespace ScaledByteTexts {

struct Text {
    std::array<char, 15> characters{};
    std::uint8_t length = 0;
};

extern const std::array<Text, 256> kTexts;

}  // namespace ScaledByteTexts

/// Copies a fixed number of characters, which is faster than the exact one; there is room.
inline char* writeNumber(char* out, ScaledByte byte) {
    const ScaledByteTexts::Text& text = ScaledByteTexts::kTexts[byte.value];
    std::copy_n(text.characters.data(), text.characters.size(), out);
    return out + text.length;
}

}  // namespace Drawing::PS

template <>
inline constexpr std::size_t Core::kMaxNumberText<Drawing::PS::ScaledByte> = 15;
