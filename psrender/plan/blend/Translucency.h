#pragma once

#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

[[nodiscard]] bool isTranslucent(const scene::Picture& picture);

/// Whether anything in `list` is translucent, what it places and paints with included.
[[nodiscard]] bool hasTranslucency(const scene::ItemList& list);

}  // namespace psrender::plan
