#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/ClipAreas.h"
#include "psrender/plan/Sink.h"

#include <optional>
#include <vector>

namespace psrender::plan {

/// Cuts what groups clip, so that nothing has to be clipped when it is drawn. What lies wholly
/// within its clip goes on as it is; shapes across the border become polygons, their strokes
/// polygons of their own; pictures are cropped.
class ClipStage : public Sink {
public:
    /// `warnings` and `next` must outlive the stage.
    ClipStage(Warnings& warnings, Sink& next)
        : warnings_(warnings), areas_(warnings), next_(next) {}

    void take(scene::Item item) override;

private:
    void begin(scene::BeginGroup group);
    void end();
    void takeShape(scene::Shape shape);
    void takeText(scene::Text text);
    void takePicture(const scene::Picture& picture);
    void takePlacement(scene::Placement placement);
    void passPart(const scene::Shape& shape, std::optional<Silhouette> area, bool isStroke);
    /// What cannot be cut is shown whole if its middle is within the clip.
    void passByMiddle(scene::Item item, const scene::Rect& box);
    [[nodiscard]] const ClipRegion& region() const { return regions_.back(); }

    /// One entry a group.
    struct Group {
        bool isClipped;
        bool isPassed;
    };

    Warnings& warnings_;
    ClipAreas areas_;
    Sink& next_;
    std::vector<Group> groups_;
    std::vector<ClipRegion> regions_;  ///< of the clipped groups, each within the one before
    std::size_t work_ = 0;             ///< what cutting has taken
};

}  // namespace psrender::plan
