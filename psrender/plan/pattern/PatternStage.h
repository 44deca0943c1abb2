#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/Stage.h"

#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace psrender::plan {

/// Plans items that stand for themselves, as in a tile or symbol, to the very end.
using PlanAlone = std::function<std::vector<scene::Item>(std::vector<scene::Item>)>;

/// Plans the tiles of patterns, each by itself and at about the size that it has on the page, as
/// tolerances go by that. Behind it a tile begins at its origin and shows nothing beyond its sides.
class PatternStage : public Stage {
public:
    /// `warnings` and `next` must outlive the stage.
    PatternStage(PlanAlone planAlone, Warnings& warnings, Sink& next)
        : Stage(next), planAlone_(std::move(planAlone)), warnings_(warnings) {}

protected:
    void on(scene::Shape shape) override;
    void on(scene::Text text) override;

private:
    /// Content, scale, sides and whether it is cut off at the sides.
    using Key = std::tuple<const scene::ItemList*, double, double, double, bool>;
    struct Known {
        std::shared_ptr<const scene::ItemList> source;  ///< kept, as the key has its address
        std::shared_ptr<const scene::ItemList> content;
    };

    template <class Painted>
    void planPaints(Painted item);
    scene::Paint planned(const scene::Paint& paint, const scene::Affine& toPage);
    /// Null for a tile beyond all measure.
    std::shared_ptr<const scene::Pattern> tileFor(const scene::Pattern& pattern,
                                                  const scene::Affine& toPage);
    [[nodiscard]] std::shared_ptr<const scene::ItemList> contentFor(const scene::Pattern& pattern,
                                                                    double scale) const;

    PlanAlone planAlone_;
    Warnings& warnings_;
    std::map<Key, Known> known_;
};

}  // namespace psrender::plan
