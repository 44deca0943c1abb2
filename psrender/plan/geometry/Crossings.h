#pragma once

#include <polyclipping/clipper.hpp>

#include <cstddef>
#include <cstdint>

namespace psrender::plan {

/// How polygons are best cut at their crossings by a sweep over the page, which looks at all
/// edges that lie on its line at the same time.
enum class Sweep {
    downwards,
    sideways,
    tooLong,  ///< either way it would take many seconds or gigabytes
};

/// Polygons with more edges than this are not cut.
inline constexpr std::size_t kMostEdges = 1'000'000;

struct SweepChoice {
    Sweep sweep;
    std::int64_t comparisons;  ///< of edges on the sweep's line, which is what cutting takes
};

/// `tooLong` from 50 million pairs of edges on the sweep's line, from half a million pairs that
/// come close to each other on the page, and where many edges run on top of each other.
SweepChoice chooseSweep(const ClipperLib::Paths& polygons);

}  // namespace psrender::plan
