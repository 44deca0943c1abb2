#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// The glyphs of a run as one shape with the text's paints. A standard font, which comes without
/// outlines, lends those of an installed font of the same design, glyph by glyph; nothing if there
/// is none.
std::optional<scene::Shape> outlinesOf(const scene::Text& text);

}  // namespace psrender::plan
