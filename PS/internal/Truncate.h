#pragma once

#include <cstdint>
#include <limits>

namespace Drawing::PS {

/// The integer part, towards zero; what lies beyond 32 bits becomes the nearest limit, and what
/// is not a number 0.
inline std::int32_t truncate(float value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(value >= static_cast<float>(Limits::min())))
        return value < 0 ? Limits::min() : 0;
    return value >= static_cast<float>(Limits::max()) ? Limits::max()
                                                      : static_cast<std::int32_t>(value);
}

}  // namespace Drawing::PS
