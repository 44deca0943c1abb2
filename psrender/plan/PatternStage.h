#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/PatternTile.h"
#include "psrender/plan/Sink.h"

#include <optional>
#include <utility>

namespace psrender::plan {

/// Turns patterns into such as the back end knows: tiles of solid shapes. A pattern that no tile
/// can hold is drawn again and again within the outline that it fills.
class PatternStage : public Sink {
public:
    /// What lies outside of `page` need not be painted. All must outlive the stage.
    PatternStage(const scene::Rect& page, PatternTiles::PlanAlone planAlone, Warnings& warnings,
                 Sink& next)
        : page_(page), patterns_(std::move(planAlone)), warnings_(warnings), next_(next) {}

    void take(scene::Item item) override;

private:
    void takeShape(scene::Shape shape);
    void takeText(scene::Text text);
    /// The paint in a form that the back end knows; nothing if there is none.
    std::optional<scene::Paint> known(const scene::Paint& paint, const scene::Affine& toPage);
    /// Draws the pattern wherever `part` paints `box`.
    void layOut(const scene::Shape& part, const scene::Paint& paint, const scene::Rect& box);
    void layOutTile(const scene::Pattern& pattern, const scene::Affine& toPage, bool isCut);
    void takeAll(const scene::ItemList& list, const scene::Affine& map);

    scene::Rect page_;
    PatternTiles patterns_;
    Warnings& warnings_;
    Sink& next_;
    std::size_t laidOut_ = 0;  ///< items that patterns have repeated on this page
};

}  // namespace psrender::plan
