#pragma once

#include "psrender/plan/gradient/GradientBands.h"
#include "psrender/scene/DisplayList.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace psrender::plan {

/// Draws gradients as tiles of solid bands that are large enough to cover what is painted, so that
/// one tile is seen only. Each band reaches under the next one, so that no seams show. Shapes of
/// the same size share a tile.
class GradientTiles {
public:
    /// A pattern that looks like `gradient` within `box`, which is in the space of the outline.
    /// `toPage` leads from there to the page and tells how fine the bands have to be. Nothing if
    /// the numbers are beyond all bounds. Bands differ by `levels` of 255.
    std::shared_ptr<const scene::Pattern> tileFor(const scene::Gradient& gradient,
                                                  const scene::Rect& box,
                                                  const scene::Affine& toPage, double levels = 1);

private:
    using Key = std::vector<double>;
    struct Known {
        std::shared_ptr<const ColorStops> stops;  ///< kept, as the key has their address
        std::shared_ptr<const scene::ItemList> content;
    };

    std::map<std::pair<const ColorStops*, Key>, Known> known_;
};

}  // namespace psrender::plan
