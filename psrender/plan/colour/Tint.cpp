#include "psrender/plan/colour/Tint.h"

#include <cmath>
#include <cstdint>

namespace psrender::plan {

Tint over(const Tint& above, const Tint& below) {
    const double seen = below.alpha * (1 - above.alpha);
    const double alpha = above.alpha + seen;
    if (!(alpha > 0))
        return {above.color, 0};
    const auto mix = [&](std::uint8_t upper, std::uint8_t lower) {
        return static_cast<std::uint8_t>(std::lround((upper * above.alpha + lower * seen) / alpha));
    };
    return {{mix(above.color.red, below.color.red), mix(above.color.green, below.color.green),
             mix(above.color.blue, below.color.blue)},
            alpha};
}

}  // namespace psrender::plan
