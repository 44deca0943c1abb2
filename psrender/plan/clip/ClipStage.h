#pragma once

#include "psrender/plan/clip/ClipGroups.h"

#include <vector>

namespace psrender::plan {

/// Brings clips into the form that the back end takes and leaves out what they hide. Behind it a
/// group either clips, by one shape, or has an opacity below 1; and an item stands in no group
/// whose clip does nothing to it, unless its neighbour needs it.
class ClipStage : public Stage {
public:
    /// All must outlive the stage.
    ClipStage(Budget& budget, Warnings& warnings, Sink& next)
        : Stage(next), shapes_(budget, warnings), groups_(next) {}

    void finish() override;

protected:
    void on(scene::Shape shape) override { show(std::move(shape)); }
    void on(scene::Text text) override { show(std::move(text)); }
    void on(scene::Picture picture) override { show(std::move(picture)); }
    void on(scene::Placement placement) override { show(std::move(placement)); }
    void on(scene::BeginGroup group) override;
    void on(scene::EndGroup end) override;

private:
    struct Group {
        bool isClipped = false;
        bool isFaint = false;  ///< whether it has an opacity, for which it goes on
    };

    void show(scene::Item item);

    ClipShapes shapes_;
    ClipGroups groups_;
    Clips clips_;  ///< that hold here; null for one that hides everything
    std::vector<Group> stack_;
};

}  // namespace psrender::plan
