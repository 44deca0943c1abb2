#pragma once

#include "psrender/scene/Outline.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace psrender::svg {

struct ParsedPath {
    scene::Outline outline;
    bool isWhole = true;                ///< false if the text goes wrong after the outline
    std::vector<std::size_t> joints{};  ///< points of the outline within arcs, ascending
};

/// The outline that path data describes, up to the first thing in it that is wrong.
ParsedPath parsePath(std::string_view data);

/// The points of a polyline or polygon, under the same rule.
ParsedPath parsePoints(std::string_view points, bool isClosed);

}  // namespace psrender::svg
