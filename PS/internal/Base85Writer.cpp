#include "PS/internal/Base85Writer.h"

#include <algorithm>
#include <array>

namespace Drawing::PS {

namespace {

constexpr int kLastColumn = 120;
constexpr std::size_t kGroup = 4;
constexpr std::size_t kBytesAtATime = 16384;
constexpr std::size_t kGroupText = 10;  ///< five digits, each perhaps with a carriage return

constexpr std::uint32_t kBase = 85;
constexpr std::uint32_t kPairs = kBase * kBase;

using Pair = std::array<char, 2>;

constexpr char digit(std::uint32_t value) {
    return static_cast<char>('!' + value);
}

/// The two digits of each number below 85 squared, which saves three divisions a group.
constexpr auto kPairTexts = [] {
    std::array<Pair, kPairs> texts{};
    for (std::uint32_t i = 0; i < kPairs; ++i)
        texts[i] = {digit(i / kBase), digit(i % kBase)};
    return texts;
}();

std::array<char, 5> digitsOf(std::uint32_t tuple) {
    const Pair& high = kPairTexts[tuple / (kPairs * kBase)];
    const std::uint32_t rest = tuple % (kPairs * kBase);
    const Pair& middle = kPairTexts[rest / kBase];
    return {high[0], high[1], middle[0], middle[1], digit(rest % kBase)};
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
