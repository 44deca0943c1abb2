#pragma once

#include "psrender/scene/DisplayList.h"

#include <vector>

namespace psrender::plan {

/// The opacity of the groups around an item. The back end paints opaque, so a translucent paint
/// becomes the colour that it has over white paper. Within a group of opaque shapes that is
/// exact: the topmost shape is seen, over white.
class OpacityStack {
public:
    void push(double opacity) { factors_.push_back(current() * opacity); }
    void pop() {
        if (!factors_.empty())
            factors_.pop_back();
    }
    /// An opaque paint, or none if nothing would be seen.
    [[nodiscard]] scene::Paint overWhite(const scene::Paint& paint) const;

    /// The product of all groups' opacities.
    [[nodiscard]] double current() const { return factors_.empty() ? 1 : factors_.back(); }

private:
    std::vector<double> factors_;
};

}  // namespace psrender::plan
