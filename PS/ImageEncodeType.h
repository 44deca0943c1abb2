#pragma once

#include <cstdint>

namespace Drawing::PS {

/// How image data is written as text. The numbers are part of the interface; the LanguageLevel 2
/// writer writes no data for `none` and `unused`, the Level 3 writer takes `none` for
/// `flateHexadecimal`.
enum class ImageEncodeType : std::int32_t {
    hexadecimal = 0,
    base85 = 1,
    none = 2,
    unused = 3,
    flateHexadecimal = 4,
    flateBase85 = 5,
};

}  // namespace Drawing::PS
