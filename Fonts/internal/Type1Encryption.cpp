#include "Fonts/internal/Type1Encryption.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Fonts::Type1Encryption {

namespace {

/// -1 for a byte that is no hexadecimal digit.
int digitOf(char byte) {
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The first four bytes of a binary part are never all digits.
bool isHexadecimal(std::string_view encrypted) {
    return encrypted.size() >= 4 && std::ranges::all_of(encrypted.substr(0, 4), [](char byte) {
               return digitOf(byte) >= 0;
           });
}

std::string decrypt(std::string_view encrypted) {
    constexpr unsigned factor = 52845;
    constexpr unsigned summand = 22719;
    std::uint16_t key = 55665;
    std::string clear;
    clear.reserve(encrypted.size());
    for (const char byte : encrypted) {
        const auto cipher = static_cast<std::uint8_t>(byte);
        clear += static_cast<char>(cipher ^ key >> 8);
        key = static_cast<std::uint16_t>((cipher + key) * factor + summand);
    }
    return clear;
}

}  // namespace

std::string toBinary(std::string_view encrypted) {
    if (!isHexadecimal(encrypted))
        return std::string(encrypted);
    std::string binary;
    int high = -1;
    for (const char byte : encrypted) {
        const int digit = digitOf(byte);
        if (digit < 0)
            continue;
        if (high >= 0)
            binary += static_cast<char>(high << 4 | digit);
        high = high >= 0 ? -1 : digit;
    }
    return binary;
}

std::string cutBehindProgram(std::string encrypted) {
    constexpr std::string_view lastWord = "closefile";
    const std::size_t found = decrypt(encrypted).rfind(lastWord);
    if (found == std::string::npos)
        return {};
    encrypted.resize(std::min(encrypted.size(), found + lastWord.size() + 1));
    return encrypted;
}

}  // namespace Fonts::Type1Encryption
