#pragma once

#include "psrender/Warnings.h"
#include "psrender/plan/GradientTile.h"
#include "psrender/plan/NativeGradients.h"
#include "psrender/plan/Opacity.h"
#include "psrender/plan/PatternTile.h"
#include "psrender/plan/Sink.h"

#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace psrender::plan {

/// Turns gradients and patterns into such as the back end knows: native gradients, and tiles of
/// solid shapes. A pattern that no tile can hold is drawn again and again within the outline that
/// it fills.
class PaintStage : public Sink {
public:
    /// What lies outside of `page` need not be painted. All must outlive the stage.
    PaintStage(const scene::Rect& page, NativeGradients& natives, PatternTiles::PlanAlone planAlone,
               Warnings& warnings, Sink& next)
        : page_(page),
          natives_(natives),
          patterns_(std::move(planAlone)),
          warnings_(warnings),
          next_(next) {}

    void take(scene::Item item) override;

private:
    void takeShape(scene::Shape shape);
    void takeText(scene::Text text);
    /// The paint in a form that the back end knows; nothing if there is none.
    std::optional<scene::Paint> known(const scene::Paint& paint, const scene::Rect& box,
                                      const scene::Affine& toPage);
    scene::Paint gradientPaint(scene::Paint paint, const scene::Rect& box,
                               const scene::Affine& toPage);
    scene::Paint leftOut();
    /// `stops` as they look over white.
    std::shared_ptr<const ColorStops> opaque(const std::shared_ptr<const ColorStops>& stops);
    /// Draws the pattern wherever `part` paints `box`.
    void layOut(const scene::Shape& part, const scene::Paint& paint, const scene::Rect& box);
    void layOutTile(const scene::Pattern& pattern, const scene::Affine& toPage, bool isCut);
    void takeAll(const scene::ItemList& list, const scene::Affine& map);

    scene::Rect page_;
    NativeGradients& natives_;
    PatternTiles patterns_;
    GradientTiles gradients_;
    Warnings& warnings_;
    Sink& next_;
    OpacityStack opacity_;
    std::size_t laidOut_ = 0;  ///< items that patterns have repeated on this page
    std::map<std::shared_ptr<const ColorStops>, std::shared_ptr<const ColorStops>> opaqueStops_;
};

}  // namespace psrender::plan
