#pragma once

#include "psrender/scene/Geometry.h"

#include <optional>
#include <string_view>

namespace psrender::svg {

/// The four numbers of a viewBox with a width and height that are not negative; else
/// nothing.
std::optional<scene::Rect> parseViewBox(std::string_view text);

/// The map that lays `box` over `viewport` as the text of a preserveAspectRatio attribute
/// tells; anything but a valid text means "xMidYMid meet". The box must not be empty.
scene::Affine fitViewBox(const scene::Rect& box, const scene::Rect& viewport,
                         std::string_view preserveAspectRatio);

}  // namespace psrender::svg
