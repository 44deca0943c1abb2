#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/ColorStops.h"
#include "psrender/plan/GradientTile.h"
#include "psrender/plan/NativeGradients.h"
#include "psrender/plan/Opacity.h"
#include "psrender/plan/Sink.h"

#include <map>
#include <memory>

namespace psrender::plan {

/// Turns gradients into such as the back end knows: its own, or tiles of solid bands.
class GradientStage : public Sink {
public:
    /// What lies outside of `page` need not be painted. All must outlive the stage.
    GradientStage(const scene::Rect& page, NativeGradients& natives, Warnings& warnings, Sink& next)
        : page_(page), natives_(natives), warnings_(warnings), next_(next) {}

    void take(scene::Item item) override;

private:
    struct Less {
        bool operator()(const ColorStops& a, const ColorStops& b) const;
    };

    void takeShape(scene::Shape shape);
    scene::Paint known(scene::Paint paint, const scene::Rect& box, const scene::Affine& toPage);
    scene::Paint leftOut();
    /// `stops` as they look over white; the same object for the same colours, which tiles share.
    std::shared_ptr<const ColorStops> opaque(const ColorStops& stops);

    scene::Rect page_;
    NativeGradients& natives_;
    GradientTiles tiles_;
    Warnings& warnings_;
    Sink& next_;
    OpacityStack opacity_;
    std::map<ColorStops, std::shared_ptr<const ColorStops>, Less> opaque_;
};

}  // namespace psrender::plan
