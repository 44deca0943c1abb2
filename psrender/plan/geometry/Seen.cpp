#include "psrender/plan/geometry/Seen.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

bool hasInverse(const scene::Affine& map) {
    const double determinant = map.determinant();
    return determinant != 0 && std::isfinite(determinant) && map.isFinite();
}

bool isSeen(const scene::Affine& toPage) {
    constexpr double thinnest = 1e-4;  // points
    constexpr double longest = 1e9;
    const double length = std::max(std::hypot(toPage.a, toPage.b), std::hypot(toPage.c, toPage.d));
    return hasInverse(toPage) && length < longest &&
           std::abs(toPage.determinant()) > thinnest * length;
}

}  // namespace psrender::plan
