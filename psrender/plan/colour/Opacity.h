#pragma once

#include "psrender/scene/DisplayList.h"

#include <map>
#include <memory>
#include <utility>
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
    [[nodiscard]] scene::Paint overWhite(const scene::Paint& paint);

    /// The product of all groups' opacities.
    [[nodiscard]] double current() const { return factors_.empty() ? 1 : factors_.back(); }

private:
    using Tile = std::shared_ptr<const scene::ItemList>;

    /// The opaque solid shapes of a tile in the colours that they have then.
    Tile paled(const Tile& tile, double opacity);

    std::vector<double> factors_;
    std::map<std::pair<Tile, double>, Tile> paled_;
};

}  // namespace psrender::plan
