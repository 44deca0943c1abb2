#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Sink.h"

namespace psrender::plan {

/// Brings pictures to a size that interpreters take: those of too high a resolution are reduced,
/// if asked, and large ones become strips, each an image of its own.
class PictureStage : public Sink {
public:
    /// `mostDotsPerInch` 0 keeps every pixel. `warnings` and `next` must outlive the stage.
    PictureStage(double mostDotsPerInch, Warnings& warnings, Sink& next)
        : mostDotsPerInch_(mostDotsPerInch), warnings_(warnings), next_(next) {}

    void take(scene::Item item) override;

private:
    void takePicture(scene::Picture picture);
    void reduce(scene::Picture& picture) const;
    void cutIntoStrips(const scene::Picture& picture);

    double mostDotsPerInch_;
    Warnings& warnings_;
    Sink& next_;
};

}  // namespace psrender::plan
