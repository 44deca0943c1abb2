#pragma once

#include "psrender/scene/DisplayList.h"

#include <cstdint>
#include <optional>

namespace psrender::plan {

/// Whether pixels lie along the page's axes, neither turned nor mirrored.
bool isUpright(const scene::Affine& map);

enum class Border : std::uint8_t { outside, inside };

/// The pixels of a picture in `box`; those on its border are taken for outside, and left out, or
/// for inside. Nothing if there is none.
std::optional<scene::Picture> croppedTo(const scene::Picture& picture, const scene::Rect& box,
                                        Border border);

}  // namespace psrender::plan
