#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>
#include <vector>

namespace psrender::plan {

/// The gradients that the back end draws itself. In one document they all show the same colours,
/// so the first gradient of a document settles these, and only such as have the same go here.
class NativeGradients {
public:
    /// `gradient`, whose stops must be opaque, as the back end knows it: it shows nothing beyond
    /// start and end, so both are moved out until they take in `box`, which is in the space of
    /// the outline. Nothing if it is not for the back end.
    std::optional<scene::Gradient> find(const scene::Gradient& gradient, const scene::Rect& box);

private:
    [[nodiscard]] bool admits(const std::vector<scene::ColorStop>& stops);

    std::vector<scene::Color> colors_;  ///< empty until the first gradient came
};

}  // namespace psrender::plan
