#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/values/Length.h"

#include <cstddef>

namespace psrender::svg {

/// What an element finds around it. What it hands on to its children is what they find.
struct Surroundings {
    const ComputedStyle& style;
    scene::Affine toPage;
    Measures measures;
    std::size_t depth = 0;
    bool isReferred = false;  ///< drawn through a reference
    bool isClip = false;      ///< only what is covered counts
};

}  // namespace psrender::svg
