#pragma once

#include "psrender/plan/Stage.h"
#include "psrender/plan/pattern/PatternStage.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

namespace psrender::plan {

/// The first stage: symbols that are placed often stay placements, which become fragments of the
/// document; all others are laid out as the items that they consist of. A fragment is opaque, as a
/// translucent thing looks different in each place.
class PlacementStage : public Stage {
public:
    /// `next` must outlive the stage.
    PlacementStage(const scene::ItemList& page, PlanAlone planAlone, Sink& next);

protected:
    void on(scene::Placement placement) override;

private:
    /// What is known of a symbol.
    struct Known {
        std::size_t count = 0;  ///< placements on the page
        bool isPlanned = false;
        std::shared_ptr<const scene::ItemList> fragment;  ///< null if it is laid out
        std::optional<scene::Rect> box;                   ///< of the symbol
    };

    void plan(const scene::Placement& placement, Known& known) const;

    PlanAlone planAlone_;
    std::unordered_map<const scene::ItemList*, Known> symbols_;
};

}  // namespace psrender::plan
