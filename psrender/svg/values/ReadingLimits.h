#pragma once

#include <cstddef>

namespace psrender::svg {

/// How large a drawing may be; beyond it is refused with a sentence. What is shared counts each
/// time. With the usual limits reading takes less than half a gigabyte.
struct ReadingLimits {
    std::size_t shapes = 500'000;

    [[nodiscard]] std::size_t points() const { return 40 * shapes; }
    [[nodiscard]] std::size_t elements() const { return 2 * shapes; }
};

}  // namespace psrender::svg
