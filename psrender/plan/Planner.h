#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/NativeGradients.h"
#include "psrender/scene/DisplayList.h"

#include <cstdint>

/// Rewrites pages so that the back end can say all of them.
namespace psrender::plan {

/// What translucent things are blended with: with what lies beneath, or with white paper.
enum class OpacityWay : std::uint8_t { blend, white };

/// What the user may choose.
struct PlanOptions {
    double mostDotsPerInch = 0;  ///< pictures with more are reduced; 0 keeps every pixel
    OpacityWay opacity = OpacityWay::blend;
};

/// Plans the pages of one document, in their order.
class Planner {
public:
    explicit Planner(PlanOptions options = {}) : options_(options) {}

    /// The page as it can be painted: no groups and no clips; every paint none or opaque; fills by
    /// the non-zero rule; joins mitred or bevelled; nothing that cannot be seen, and no number
    /// that PostScript cannot read. Looks the same, but for what `warnings` counts.
    scene::Page plan(scene::Page page, Warnings& warnings);

private:
    PlanOptions options_;
    NativeGradients natives_;
};

}  // namespace psrender::plan
