#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Stage.h"

namespace psrender::plan {

/// Leaves out gradients that no interpreter can divide by, and shows such in one colour whose
/// periods are too many to be told apart.
class GradientStage : public Stage {
public:
    /// Both must outlive the stage.
    GradientStage(Warnings& warnings, Sink& next) : Stage(next), warnings_(warnings) {}

protected:
    void on(scene::Shape shape) override;
    void on(scene::Text text) override;

private:
    template <class Painted>
    void limitPaints(Painted item);
    [[nodiscard]] scene::Paint limited(const scene::Paint& paint, const scene::Rect& box,
                                       const scene::Affine& toPage);

    Warnings& warnings_;
};

/// Whether the image of the square of side 1 has a size on the page that an interpreter can divide
/// by.
bool isSeen(const scene::Affine& toPage);

}  // namespace psrender::plan
