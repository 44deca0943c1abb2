#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// The back end knows mitred joins with a limit, and so bevelled ones: limit 1 cuts every mitre.
/// A round join is a bevelled one and a disc on the vertex, and a disc is what an interpreter
/// makes of a line without length and round caps (PLRM `stroke`). Turns the round joins of
/// `shape` into bevelled ones and gives the shape of the discs that belong on top; none where
/// the difference would not show.
std::optional<scene::Shape> replaceRoundJoins(scene::Shape& shape);

/// A subpath without length and with square caps is a square, which interpreters leave out: the
/// squares of such subpaths, filled with the stroke's paint.
std::optional<scene::Shape> squareDots(const scene::Shape& shape);

}  // namespace psrender::plan
