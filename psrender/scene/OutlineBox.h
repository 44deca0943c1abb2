#pragma once

#include "psrender/scene/Outline.h"

#include <optional>

namespace psrender::scene {

/// The smallest box around the lines and curves themselves; nothing for an empty outline.
std::optional<Rect> tightBox(const Outline& outline);

}  // namespace psrender::scene
