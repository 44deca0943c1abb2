#pragma once

#include "psrender/plan/Sink.h"

#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

namespace psrender::plan {

/// The first sink: symbols that are placed often stay placements, which become fragments of the
/// document; all others are laid out as the items that they consist of.
///
/// A fragment holds opaque solid shapes only: text in it would clash with the fonts of the page,
/// gradients and patterns with theirs, and a translucent shape looks different in each place.
class PlacementStage : public Sink {
public:
    using Items = std::vector<scene::Item>;
    /// Plans items by themselves to the very end.
    using PlanAlone = std::function<Items(Items)>;

    /// `next` must outlive the stage.
    PlacementStage(const scene::ItemList& page, PlanAlone planAlone, Sink& next);

    void take(scene::Item item) override;

private:
    using SymbolKey = std::pair<const scene::ItemList*, int>;

    void place(const scene::Placement& placement);
    [[nodiscard]] bool isWorthIt(const scene::Placement& placement) const;
    /// The symbol as a fragment shows it at the size of this placement, or null.
    std::shared_ptr<const scene::ItemList> fragmentFor(const scene::Placement& placement);
    [[nodiscard]] std::shared_ptr<const scene::ItemList> makeFragment(const scene::ItemList& symbol,
                                                                      double scale) const;
    void layOut(const scene::Placement& placement);

    PlanAlone planAlone_;
    Sink& next_;
    std::unordered_map<const scene::ItemList*, std::size_t> counts_;  ///< placements on the page
    std::map<SymbolKey, std::shared_ptr<const scene::ItemList>> fragments_;
};

/// `placement` as the items that it shows. They may be placements again.
scene::ItemList itemsOf(const scene::Placement& placement);

}  // namespace psrender::plan
