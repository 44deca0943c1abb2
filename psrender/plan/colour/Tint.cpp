#include "psrender/plan/colour/Tint.h"

namespace psrender::plan {

Tint over(const Tint& above, const Tint& below) {
    const double seen = below.alpha * (1 - above.alpha);
    const double alpha = above.alpha + seen;
    if (!(alpha > 0))
        return {above.color, 0};
    return {scene::Color::mixed(below.color, above.color, above.alpha / alpha), alpha};
}

}  // namespace psrender::plan
