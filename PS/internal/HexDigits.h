#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Drawing::PS {

/// The two upper-case hexadecimal digits of every byte.
inline constexpr auto kHexDigits = [] {
    constexpr const char* digits = "0123456789ABCDEF";
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = {digits[byte >> 4], digits[byte & 0xF]};
    return pairs;
}();

/// Writes the digits to `out`; where the next ones go.
inline char* putHex(char* out, std::uint8_t byte) {
    std::memcpy(out, kHexDigits[byte].data(), 2);
    return out + 2;
}

inline std::string_view hexDigits(std::uint8_t byte) {
    return {kHexDigits[byte].data(), 2};
}

}  // namespace Drawing::PS
