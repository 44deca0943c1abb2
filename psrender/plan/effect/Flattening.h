#pragma once

#include "psrender/plan/effect/PixelMaker.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

inline constexpr double kUsualDotsPerInch = 300;

/// About what items take in a file.
[[nodiscard]] double estimatedBytes(const std::vector<scene::Item>& items);
/// What the pixels of a picture of this size take before they are compressed.
[[nodiscard]] double bytesOfPicture(const scene::Rect& box, double dotsPerInch);

/// A page on which all that is translucent is one picture, together with what lies beneath. What
/// lies above, and what is opaque and lies around it, stays as it is.
[[nodiscard]] scene::ItemList flattened(const scene::ItemList& page, PixelMaker& maker);

}  // namespace psrender::plan
