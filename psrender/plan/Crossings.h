#pragma once

#include "psrender/plan/Polyline.h"

#include <vector>

namespace psrender::plan {

/// How polygons are best cut at their crossings by a sweep over the page, which looks at all
/// edges that lie on its line at the same time.
enum class Sweep {
    downwards,
    sideways,
    tooLong,  ///< either way it would take many seconds or gigabytes
};

/// `tooLong` from a million edges, 50 million pairs of edges on the sweep's line, or half a
/// million pairs that come close to each other on the page.
Sweep chooseSweep(const std::vector<Polyline>& polygons);

/// No outline with more edges than this is cut.
inline constexpr std::size_t kMostEdges = 1'000'000;

}  // namespace psrender::plan
