#include "Core/NumberText.h"

#include "Core/Exception.h"

#include <cmath>

namespace Core {

namespace {

/// Whole values of ordinary size print as integers, several times faster than as reals. The
/// range is tested before the cast, which is undefined outside of it.
template <class T>
bool isSmallWhole(T value) {
    return value > T{-1e9} && value < T{1e9} && static_cast<T>(static_cast<int>(value)) == value;
}

template <class T>
char* writeReal(char* out, T value) {
    if (isSmallWhole(value))
        return writeNumber(out, static_cast<int>(value));
    if (!(std::abs(value) <= static_cast<T>(std::numeric_limits<float>::max())))
        throw NumberRangeException(static_cast<double>(value));
    return std::to_chars(out, out + kMaxNumberText<T>, value, std::chars_format::fixed).ptr;
}

}  // namespace

char* writeNumber(char* out, float value) {
    return writeReal(out, value);
}

char* writeNumber(char* out, double value) {
    return writeReal(out, value);
}

}  // namespace Core
