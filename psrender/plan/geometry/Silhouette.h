#pragma once

#include "psrender/plan/geometry/Polygons.h"
#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// Polygons on the page and the rule by which they are filled.
struct Silhouette {
    Polygons polygons;
    PolyFillType rule = ClipperLib::pftNonZero;
};

/// What the fill of `shape` covers; nothing if it has too many corners.
std::optional<Silhouette> fillOf(const scene::Shape& shape);

/// What its stroke covers, whatever its paint; parts that do not reach into `wanted` may be left
/// out. Nothing if it has too many corners.
std::optional<Silhouette> strokeOf(const scene::Shape& shape, const scene::Rect& wanted);

/// A box around all that `shape` paints; nothing for an empty outline.
std::optional<scene::Rect> paintedBox(const scene::Shape& shape);

}  // namespace psrender::plan
