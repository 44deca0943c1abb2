#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// What both cover; nothing if they have no area in common.
std::optional<scene::Rect> common(const scene::Rect& a, const scene::Rect& b);

/// A box in the shape's own space that no point of its fill, or of its stroke, is beyond.
scene::Rect fillBox(const scene::Shape& shape);
scene::Rect strokeBox(const scene::Shape& shape);

/// A box in the list's space around all that it shows; nothing if that is nothing.
std::optional<scene::Rect> boxOf(const scene::ItemList& list);

}  // namespace psrender::plan
