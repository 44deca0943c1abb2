#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Stage.h"

namespace psrender::plan {

/// Takes off pictures what nobody sees: clear margins, and pixels beyond a resolution, if asked.
class PictureStage : public Stage {
public:
    /// `mostDotsPerInch` 0 keeps every pixel. `warnings` and `next` must outlive the stage.
    PictureStage(double mostDotsPerInch, Warnings& warnings, Sink& next)
        : Stage(next), mostDotsPerInch_(mostDotsPerInch), warnings_(warnings) {}

protected:
    void on(scene::Picture picture) override;

private:
    void reduce(scene::Picture& picture) const;

    double mostDotsPerInch_;
    Warnings& warnings_;
};

}  // namespace psrender::plan
