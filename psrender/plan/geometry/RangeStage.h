#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Stage.h"

namespace psrender::plan {

/// The last stage: nothing that it passes on is beyond what interpreters read and compute with.
class RangeStage : public Stage {
public:
    /// Both must outlive the stage.
    RangeStage(Warnings& warnings, Sink& next) : Stage(next), warnings_(warnings) {}

protected:
    void on(scene::Shape shape) override;
    void on(scene::Text text) override;

private:
    Warnings& warnings_;
};

}  // namespace psrender::plan
