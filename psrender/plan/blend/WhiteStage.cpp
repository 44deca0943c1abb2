#include "psrender/plan/blend/WhiteStage.h"

#include "psrender/image/DerivedImages.h"

namespace psrender::plan {

void WhiteStage::on(scene::Picture picture) {
    const double shown = picture.opacity * opacity();
    if (!(shown > 0))
        return;
    picture.image = image::flattened(picture.image, shown, scene::kWhite);
    picture.opacity = 1;
    pass(std::move(picture));
}

void WhiteStage::on(scene::BeginGroup group) {
    groups_.push_back({opacity() * group.opacity, group.clip.has_value()});
    group.opacity = 1;
    if (group.clip)
        pass(std::move(group));
}

void WhiteStage::on(scene::EndGroup end) {
    if (groups_.empty())
        return;
    if (groups_.back().isClip)
        pass(end);
    groups_.pop_back();
}

}  // namespace psrender::plan
