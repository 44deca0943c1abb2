#pragma once

#include "psrender/base/Warnings.h"
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
    /// Of pictures of what cannot be said in vectors, such as filters; 0 leaves that out.
    double rasterDotsPerInch = 300;
};

/// Plans pages, each by itself.
class Planner {
public:
    explicit Planner(PlanOptions options = {}) : options_(options) {}

    /// The page as it can be painted: every paint none or opaque; groups that clip by one shape
    /// and do nothing else; tiles and symbols in the same form; no number that an interpreter
    /// cannot read or compute with. Looks the same, but for what `warnings` counts.
    [[nodiscard]] scene::Page plan(scene::Page page, Warnings& warnings) const;

private:
    PlanOptions options_;
};

}  // namespace psrender::plan
