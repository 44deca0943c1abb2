#pragma once

#include "psrender/plan/Stage.h"
#include "psrender/plan/clip/ClipShapes.h"

#include <memory>
#include <vector>

namespace psrender::plan {

/// The clips that hold for an item, the outermost first.
using Clips = std::vector<std::shared_ptr<const PlannedClip>>;

/// Passes groups on that clip, so that any item can be shown under the clips that it needs. Groups
/// that the next item needs as well stay open.
class ClipGroups {
public:
    /// `next` must outlive the object.
    explicit ClipGroups(Sink& next) : next_(next) {}

    [[nodiscard]] const Clips& open() const { return open_; }
    /// Closes and opens groups until just `wanted` hold.
    void change(const Clips& wanted);

private:
    Sink& next_;
    Clips open_;
};

}  // namespace psrender::plan
