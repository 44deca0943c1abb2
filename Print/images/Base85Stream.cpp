#include "Print/images/internal/Base85Stream.h"

#include <algorithm>
#include <array>

namespace Drawing::Print {

namespace {

constexpr std::uint32_t kBase = 85;
constexpr std::size_t kGroup = 4;
constexpr std::size_t kDigits = 5;
constexpr std::size_t kLastColumn = 240;
constexpr std::size_t kBytesAtATime = 16384;
/// A group with the end of the line before it and the blank that hides a "%".
constexpr std::size_t kGroupText = kDigits + 2;

}  // namespace

void Base85Stream::take(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto part = bytes.first(std::min(bytes.size(), kBytesAtATime));
        out_ = output_.reserve((part.size() / kGroup + 1) * kGroupText);
        takeSome(part);
        output_.commit(out_);
        bytes = bytes.subspan(part.size());
    }
}

void Base85Stream::takeSome(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty() && count_ > 0) {
        takeByte(bytes.front());
        bytes = bytes.subspan(1);
    }
    for (; bytes.size() >= kGroup; bytes = bytes.subspan(kGroup))
        putGroup(std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
                     std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]},
                 kDigits);
    for (const std::uint8_t byte : bytes)
        takeByte(byte);
}

void Base85Stream::takeByte(std::uint8_t byte) {
    group_ |= std::uint32_t{byte} << (24 - 8 * count_);
    if (++count_ < kGroup)
        return;
    putGroup(group_, kDigits);
    group_ = 0;
    count_ = 0;
}

/// Four zero bytes are a single "z"; a group at the end has a digit more than it has bytes.
void Base85Stream::putGroup(std::uint32_t group, std::size_t digits) {
    if (column_ >= kLastColumn) {
        *out_++ = '\n';
        column_ = 0;
    }
    if (group == 0 && digits == kDigits) {
        *out_++ = 'z';
        ++column_;
        return;
    }
    std::array<char, kDigits> text{};
    for (std::size_t i = kDigits; i-- > 0; group /= kBase)
        text[i] = static_cast<char>('!' + group % kBase);
    if (column_ == 0 && text[0] == '%')
        *out_++ = ' ';
    out_ = std::copy_n(text.begin(), digits, out_);
    column_ += digits;
}

void Base85Stream::finish() {
    out_ = output_.reserve(kGroupText + 3);
    if (count_ > 0)
        putGroup(group_, count_ + 1);
    for (const char character : {'~', '>', '\n'})
        *out_++ = character;
    output_.commit(out_);
}

}  // namespace Drawing::Print
