#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Opacity.h"
#include "psrender/plan/Sink.h"

namespace psrender::plan {

/// The last sink: brings shapes into the form that the back end knows. Every paint becomes none or
/// opaque, pictures too, fills go by the non-zero rule, joins are mitred or bevelled; what cannot
/// be seen is left out, and no number is beyond what PostScript reads.
class ShapeStage : public Sink {
public:
    /// Collects what it makes in `items`; both must outlive the stage.
    ShapeStage(std::vector<scene::Item>& items, Warnings& warnings)
        : items_(items), warnings_(warnings) {}

    void take(scene::Item item) override;

private:
    void takeShape(scene::Shape shape);
    void takeText(scene::Text text);
    void takePicture(scene::Picture picture);
    void place(scene::Shape shape);
    void placeEvenOddFill(scene::Shape& shape);

    std::vector<scene::Item>& items_;
    Warnings& warnings_;
    OpacityStack opacity_;
};

}  // namespace psrender::plan
