#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/plan/ClipRegion.h"
#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace psrender::plan {

/// Works out where clips let things be seen. A bounded amount of corners is looked at; what lies
/// beyond is taken for empty, with a warning.
class ClipAreas {
public:
    /// `warnings` must outlive the object.
    explicit ClipAreas(Warnings& warnings) : warnings_(warnings) {}

    ClipRegion regionOf(const scene::Clip& clip);

private:
    struct Known {
        scene::Clip clip;
        ClipRegion region;
    };

    ClipRegion makeRegion(const scene::Clip& clip);
    Polygons areaOf(const scene::ItemList& list, const scene::Affine& toPage);
    Polygons areaOf(const scene::Item& item, const scene::Affine& toPage);
    Polygons areaOf(scene::Shape shape, const scene::Affine& toPage);
    Polygons simple(Silhouette silhouette);

    Warnings& warnings_;
    std::vector<Known> known_;  ///< the latest last
    std::size_t corners_ = 0;
};

}  // namespace psrender::plan
