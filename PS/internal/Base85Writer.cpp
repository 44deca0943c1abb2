#include "PS/internal/Base85Writer.h"

#include <algorithm>
#include <array>

namespace Drawing::PS {

namespace {

constexpr int kLastColumn = 120;
constexpr std::size_t kGroup = 4;
constexpr std::size_t kBytesAtATime = 16384;
constexpr std::size_t kGroupText = 10;  ///< five digits, each perhaps with a carriage return

std::array<char, 5> digitsOf(std::uint32_t tuple) {
    std::array<char, 5> digits{};
    for (char& digit : digits) {
        digit = static_cast<char>('!' + tuple % 85);
        tuple /= 85;
    }
    std::reverse(digits.begin(), digits.end());
    return digits;
}

std::uint32_t tupleAt(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

}  // namespace

void Base85Writer::put(char character) {
    *out_++ = character;
    if (column_++ < kLastColumn)
        return;
    column_ = 0;
    *out_++ = '\r';
}

/// Writes the first `digits` digits of the tuple; a group of them that fits on the line goes out
/// in one piece.
void Base85Writer::putGroup(int digits) {
    const std::array<char, 5> text = digitsOf(tuple_);
    if (column_ + digits <= kLastColumn) {
        out_ = std::copy_n(text.begin(), digits, out_);
        column_ += digits;
        return;
    }
    for (int i = 0; i < digits; ++i)
        put(text[static_cast<std::size_t>(i)]);
}

void Base85Writer::putTuple() {
    if (tuple_ == 0)
        put('z');
    else
        putGroup(5);
    tuple_ = 0;
    count_ = 0;
}

void Base85Writer::putByte(std::uint8_t byte) {
    tuple_ |= std::uint32_t{byte} << (24 - 8 * count_);
    if (++count_ == static_cast<int>(kGroup))
        putTuple();
}

void Base85Writer::write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto part = bytes.first(std::min(bytes.size(), kBytesAtATime));
        out_ = stream_.reserve((part.size() / kGroup + 1) * kGroupText);
        std::size_t i = 0;
        while (i < part.size() && count_ != 0)
            putByte(part[i++]);
        for (; i + kGroup <= part.size(); i += kGroup) {
            tuple_ = tupleAt(part.data() + i);
            putTuple();
        }
        while (i < part.size())
            putByte(part[i++]);
        stream_.commit(out_);
        bytes = bytes.subspan(part.size());
    }
}

void Base85Writer::finish() {
    out_ = stream_.reserve(2 * kGroupText);
    if (count_ > 0)
        putGroup(count_ + 1);
    if (column_ + 2 > kLastColumn)
        *out_++ = '\r';
    for (const char character : {'~', '>', '\r'})
        *out_++ = character;
    stream_.commit(out_);
}

}  // namespace Drawing::PS
