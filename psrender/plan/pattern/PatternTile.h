#pragma once

#include "psrender/scene/DisplayList.h"

#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace psrender::plan {

/// Brings patterns into the form that the back end knows: tiles from the origin on that hold
/// solid shapes only.
class PatternTiles {
public:
    /// Plans items by themselves to the very end.
    using PlanAlone = std::function<std::vector<scene::Item>(std::vector<scene::Item>)>;

    explicit PatternTiles(PlanAlone planAlone) : planAlone_(std::move(planAlone)) {}

    /// The pattern as a tile; null if a tile cannot hold its content, or would be beyond all
    /// measure. `toPage` leads from the space of the painted outline to the page.
    std::shared_ptr<const scene::Pattern> tileFor(const scene::Pattern& pattern,
                                                  const scene::Affine& toPage);

private:
    using Key = std::tuple<const scene::ItemList*, double, double, double, bool>;
    struct Known {
        std::shared_ptr<const scene::ItemList> source;  ///< kept, as the key has its address
        std::shared_ptr<const scene::ItemList> content;
    };

    [[nodiscard]] std::shared_ptr<const scene::ItemList> contentFor(const scene::Pattern& pattern,
                                                                    double scale) const;

    PlanAlone planAlone_;
    std::map<Key, Known> known_;
};

}  // namespace psrender::plan
