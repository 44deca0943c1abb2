#include "Core/NumberText.h"

#include "Core/Exception.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace Core {

namespace {

/// Whole values of ordinary size print as integers, several times faster than as reals. The
/// range is tested before the cast, which is undefined outside of it.
template <class T>
bool isSmallWhole(T value) {
    return value > T{-1e9} && value < T{1e9} && static_cast<T>(static_cast<int>(value)) == value;
}

[[gnu::noinline]] char* writeWhole(char* out, int value) {
    return writeNumber(out, value);
}

template <class T>
char* writeReal(char* out, T value) {
    if (!(std::abs(value) <= static_cast<T>(std::numeric_limits<float>::max())))
        throw NumberRangeException(static_cast<double>(value));
    return std::to_chars(out, out + kMaxNumberText<T>, value, std::chars_format::fixed).ptr;
}

/// A text made once and copied when the same value comes again soon: drawings repeat their
/// coordinates (each corner of a rectangle shares both of its own with a neighbour), and copying
/// is ten times as fast as finding the shortest decimal.
struct RecentText {
    float value = 0;
    std::uint8_t length = 0;  ///< 0 in a slot that was never used
    std::array<char, 27> text{};
};

constexpr unsigned kSlotBits = 7;
constinit thread_local std::array<RecentText, 1U << kSlotBits> recentTexts{};

/// Multiplicative hashing: the highest bits of the product depend on all bits of the value.
std::size_t slotOf(float value) {
    return (std::bit_cast<std::uint32_t>(value) * 0x9E3779B1U) >> (32 - kSlotBits);
}

[[gnu::noinline]] char* writeAndRemember(char* out, float value, RecentText& recent) {
    char* end = writeReal(out, value);
    const auto length = static_cast<std::size_t>(end - out);
    if (length <= recent.text.size()) {
        std::copy_n(out, recent.text.size(), recent.text.data());
        recent.value = value;
        recent.length = static_cast<std::uint8_t>(length);
    }
    return end;
}

}  // namespace

char* writeNumber(char* out, float value) {
    if (isSmallWhole(value))
        return writeWhole(out, static_cast<int>(value));
    RecentText& recent = recentTexts[slotOf(value)];
    if (recent.value != value || recent.length == 0)
        return writeAndRemember(out, value, recent);
    std::copy_n(recent.text.data(), recent.text.size(), out);
    return out + recent.length;
}

char* writeNumber(char* out, double value) {
    return isSmallWhole(value) ? writeWhole(out, static_cast<int>(value)) : writeReal(out, value);
}

}  // namespace Core
