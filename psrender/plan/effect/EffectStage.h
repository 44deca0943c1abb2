#pragma once

#include "psrender/plan/Stage.h"
#include "psrender/plan/effect/Beneath.h"
#include "psrender/plan/effect/PixelMaker.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace psrender::plan {

/// Makes pictures of groups with effects, and of pictures with alpha over what is not of one
/// colour. A picture that shows through is blended with what lies beneath, pixel by pixel, and cut
/// out: painted where it shows something only. What is translucent and lies over such a picture
/// becomes one itself, as nothing in vectors could be blended with it.
///
/// Behind it groups have no effects.
class EffectStage : public Stage {
public:
    /// Both must outlive the stage. `hasPicturesOnPatterns` takes patterns for cut-outs.
    EffectStage(const PixelMaker& maker, bool hasPicturesOnPatterns, Warnings& warnings, Sink& next)
        : Stage(next),
          maker_(maker),
          hasPicturesOnPatterns_(hasPicturesOnPatterns),
          warnings_(warnings) {}

protected:
    void on(scene::Shape shape) override { takeItem(std::move(shape)); }
    void on(scene::Text text) override { takeItem(std::move(text)); }
    void on(scene::Picture picture) override;
    void on(scene::Placement placement) override { takeItem(std::move(placement)); }
    void on(scene::BeginGroup group) override;
    void on(scene::EndGroup end) override;

private:
    using Items = std::vector<scene::Item>;

    void takeItem(scene::Item item);
    void passSingle(scene::Item item);
    void takeGroup();
    void pass(scene::Item item);
    /// Shows items as one picture.
    void showAsPicture(Items items);
    void paint(const Items& items, const raster::Area& area);
    void layTextBeneath(const Items& items, const scene::Color& ground, const raster::Pixels& shape,
                        const raster::Area& area);
    void showWithoutEffects(Items items);
    [[nodiscard]] bool liesOnCutOut(const Items& items) const;

    PixelMaker maker_;
    bool hasPicturesOnPatterns_;
    Warnings& warnings_;
    Beneath beneath_;
    std::vector<scene::Rect> cutOuts_;  ///< boxes of what nothing in vectors can be blended with
    Items group_;                       ///< that is not complete yet
    std::size_t depth_ = 0;             ///< of groups within it, itself included
};

}  // namespace psrender::plan
