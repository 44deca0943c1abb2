#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// The box around the image of `box`.
scene::Rect mapped(const scene::Rect& box, const scene::Affine& map);

/// What both cover; nothing if they have no area in common.
std::optional<scene::Rect> common(const scene::Rect& a, const scene::Rect& b);

/// A box in the shape's own space that no point of its fill, or of its stroke, is beyond.
scene::Rect fillBox(const scene::Shape& shape);
scene::Rect strokeBox(const scene::Shape& shape);

/// A box in the run's own space that hardly a glyph reaches beyond.
scene::Rect textBox(const scene::Text& text);

/// A box in the list's space around all that it shows; nothing if that is nothing.
std::optional<scene::Rect> boxOf(const scene::ItemList& list);

}  // namespace psrender::plan
