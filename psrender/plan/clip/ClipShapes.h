#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/clip/ClipRegion.h"
#include "psrender/scene/DisplayList.h"

#include <memory>
#include <optional>
#include <vector>

namespace psrender::plan {

/// A clip as the back end takes it: the area holds a single filled shape.
struct PlannedClip {
    scene::Clip clip;
    scene::Rect box;           ///< around the area on the page
    bool isRectangle = false;  ///< whether the area is all of the box

    [[nodiscard]] const scene::Shape& shape() const {
        return std::get<scene::Shape>(clip.area->items.front());
    }
};

/// A clip to what `shape` fills, which must not be empty, whatever its paint.
std::shared_ptr<const PlannedClip> clipTo(scene::Shape shape);

/// Makes one shape of whatever a clip consists of. Outlines are kept where they can stand beside
/// each other; areas that meet are united, and clips within clips cut.
class ClipShapes {
public:
    /// Both must outlive the object.
    ClipShapes(Budget& budget, Warnings& warnings) : budget_(budget), warnings_(warnings) {}

    /// Null if nothing shows within the clip. The same object for the same clip, as a rule.
    std::shared_ptr<const PlannedClip> plannedFor(const scene::Clip& clip);

private:
    struct Known {
        scene::Clip clip;
        std::shared_ptr<const PlannedClip> planned;
    };

    std::shared_ptr<const PlannedClip> plan(const scene::Clip& clip);
    scene::Shape shapeOf(const scene::Clip& clip);
    /// Adds the shapes of `list`; false if there is a clip within it.
    bool collect(const scene::ItemList& list, const scene::Affine& toPage,
                 std::vector<scene::Shape>& shapes);
    std::optional<scene::Shape> shapeOf(const scene::Item& item, const scene::Affine& toPage);
    std::optional<Polygons> areaOf(const scene::ItemList& list, const scene::Affine& toPage);
    Polygons areaOf(const scene::Item& item, const scene::Affine& toPage);

    Budget& budget_;
    Warnings& warnings_;
    std::vector<Known> known_;  ///< the latest last
};

/// The box of a shape that is an axis-parallel rectangle on the page.
std::optional<scene::Rect> rectangleOf(const scene::Shape& shape);

}  // namespace psrender::plan
