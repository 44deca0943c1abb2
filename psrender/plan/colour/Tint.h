#pragma once

#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// A colour and how much it hides of what is beneath.
struct Tint {
    scene::Color color = scene::kWhite;
    double alpha = 1;

    friend bool operator==(const Tint&, const Tint&) = default;
};

/// What is seen where `above` lies on `below`.
Tint over(const Tint& above, const Tint& below);

}  // namespace psrender::plan
