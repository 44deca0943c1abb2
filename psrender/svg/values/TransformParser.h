#pragma once

#include "psrender/scene/Geometry.h"

#include <optional>
#include <string_view>

namespace psrender::svg {

/// The map of a list such as "translate(10,20) rotate(30)", leftmost outermost; nothing if
/// any part of the list is wrong.
std::optional<scene::Affine> parseTransform(std::string_view text);

}  // namespace psrender::svg
