#include "Print/internal/TextBuffer.h"

#include "Core/Exception.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Drawing::Print {

namespace {

constexpr std::size_t kFirstRoom = std::size_t{1} << 12;
constexpr std::size_t kNumberRoom = Core::kMaxNumberText<double> + 1;
constexpr std::array<std::int64_t, TextBuffer::kMostDecimals + 1> kPowers{
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
/// Beyond it, rounding to decimals has nothing left to round.
constexpr double kMostRounded = 1e8;

/// The digits of `fraction`, `digits` of them, without the zeros at their end.
char* writeFraction(char* out, std::int64_t fraction, int digits) {
    for (; fraction % 10 == 0; fraction /= 10)
        --digits;
    for (char* at = out + digits; at != out; fraction /= 10)
        *--at = static_cast<char>('0' + fraction % 10);
    return out + digits;
}

/// A float's own digits where it is one; doubles come from computed numbers only.
char* writeExact(char* out, double value) {
    const auto single = static_cast<float>(value);
    if (std::isfinite(value) && std::abs(value) <= std::numeric_limits<float>::max())
        return Core::writeNumber(out, single);
    throw Core::NumberRangeException(value);
}

}  // namespace

char* writeRounded(char* out, double value, int decimals) {
    if (!(std::abs(value) < kMostRounded) || decimals < 0 || decimals > TextBuffer::kMostDecimals)
        return writeExact(out, value);
    const std::int64_t power = kPowers[static_cast<std::size_t>(decimals)];
    std::int64_t rounded = std::llround(value * static_cast<double>(power));
    if (rounded < 0) {
        *out++ = '-';
        rounded = -rounded;
    }
    const std::int64_t whole = rounded / power;
    const std::int64_t fraction = rounded % power;
    if (whole != 0 || fraction == 0)
        out = std::to_chars(out, out + Core::kMaxNumberText<std::int64_t>, whole).ptr;
    if (fraction == 0)
        return out;
    *out++ = '.';
    return writeFraction(out, fraction, decimals);
}

bool TextBuffer::needsBlank() const {
    if (size_ == 0)
        return false;
    const char last = text_[size_ - 1];
    return last != '\n' && last != ' ' && last != '[' && last != ']' && last != '(' &&
           last != ')' && last != '>';
}

void TextBuffer::number(double value, int decimals) {
    char* out = reserve(kNumberRoom);
    if (needsBlank())
        *out++ = ' ';
    commit(writeRounded(out, value, decimals));
}

void TextBuffer::flushTo(Core::IO::Stream& stream) {
    stream.write(view());
    size_ = 0;
}

void TextBuffer::grow(std::size_t count) {
    const std::size_t room = std::max({kFirstRoom, 2 * capacity_, size_ + count});
    auto text = std::make_unique_for_overwrite<char[]>(room);
    if (size_ != 0)
        std::memcpy(text.get(), text_.get(), size_);
    text_ = std::move(text);
    capacity_ = room;
}

}  // namespace Drawing::Print
