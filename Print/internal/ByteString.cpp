#include "Print/internal/ByteString.h"

#include <cstddef>

namespace Drawing::Print {

namespace {

constexpr std::size_t kTuplesPerLine = 20;
constexpr std::uint32_t kBase = 85;

/// The first `digits` of the five that stand for four bytes.
void writeTuple(std::uint32_t value, int digits, TextBuffer& out) {
    char text[5];
    for (int i = 4; i >= 0; --i, value /= kBase)
        text[i] = static_cast<char>('!' + value % kBase);
    out << std::string_view(text, static_cast<std::size_t>(digits));
}

}  // namespace

void writeByteString(std::span<const std::uint8_t> bytes, TextBuffer& out) {
    out << "<~";
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        // A blank goes before each line's text, as "%" is one of the digits.
        if (at != 0 && at / 4 % kTuplesPerLine == 0)
            out << "\n ";
        const std::size_t count = std::min<std::size_t>(4, bytes.size() - at);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | (i < count ? bytes[at + i] : 0U);
        if (value == 0 && count == 4)
            out << 'z';
        else
            writeTuple(value, static_cast<int>(count) + 1, out);
    }
    out << "~>";
}

}  // namespace Drawing::Print
