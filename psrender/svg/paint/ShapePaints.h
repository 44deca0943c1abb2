#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/paint/PaintServer.h"

namespace psrender::svg {

class PaintResolver;

/// Works out how a shape is painted: its fill, its stroke and how its lines are drawn.
class ShapePaints {
public:
    /// `paints` must outlive it.
    explicit ShapePaints(PaintResolver& paints) : paints_(paints) {}

    /// A shape of this style at this place that has no outline and no transform yet.
    [[nodiscard]] scene::Shape resolve(const ComputedStyle& style, const PaintPlace& place);

private:
    PaintResolver& paints_;
};

}  // namespace psrender::svg
