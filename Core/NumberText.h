#pragma once

#include "Core/Export.h"

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>

/// Numbers as a PostScript scanner reads them (PLRM 3.2.2): plain decimals in the shortest form
/// that reads back as the same value. Never an exponent (a real where an integer is due), never
/// "-0", never a locale's comma.
namespace Core {

/// Characters that a number of type `T` takes at most.
template <class T>
inline constexpr std::size_t kMaxNumberText = 20;
template <>
inline constexpr std::size_t kMaxNumberText<float> = 64;
template <>
inline constexpr std::size_t kMaxNumberText<double> = 352;

/// Write `value` at `out`, which has room for `kMaxNumberText` characters, and return the end.
/// Raise `NumberRangeException` for a value that is not finite or beyond the range of a float,
/// before anything is written.
CORE_API char* writeNumber(char* out, float value);
CORE_API char* writeNumber(char* out, double value);

inline char* writeNumber(char* out, std::integral auto value) {
    return std::to_chars(out, out + kMaxNumberText<std::int64_t>, value).ptr;
}

}  // namespace Core
