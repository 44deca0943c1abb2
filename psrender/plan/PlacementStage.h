#pragma once

#include "psrender/plan/Stage.h"
#include "psrender/plan/pattern/PatternStage.h"

#include <memory>
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
    using List = std::shared_ptr<const scene::ItemList>;

    [[nodiscard]] bool isWorthIt(const scene::Placement& placement) const;
    /// The symbol as a fragment shows it.
    const List& fragmentFor(const scene::Placement& placement);

    PlanAlone planAlone_;
    std::unordered_map<const scene::ItemList*, std::size_t> counts_;  ///< placements on the page
    std::unordered_map<const scene::ItemList*, List> fragments_;
};

}  // namespace psrender::plan
