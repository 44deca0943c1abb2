#pragma once

#include "psrender/plan/BlendArea.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <vector>

namespace psrender::plan {

/// What blending may still cost on a page, so that it takes seconds at most.
struct BlendBudget {
    std::size_t steps = 1'000'000'000;  ///< boxes that are looked at
    std::size_t corners = 20'000'000;   ///< of polygons that are cut
    std::size_t pieces = 200'000;

    /// Areas of several colours that were taken for one of their average.
    std::size_t averages = 0;

    /// Takes `amount` off `part`; false once there is none left.
    static bool spend(std::size_t& part, std::size_t amount) {
        part = part > amount ? part - amount : 0;
        return part > 0;
    }
    [[nodiscard]] bool isSpent() const { return steps == 0 || corners == 0 || pieces == 0; }
};

/// Areas on top of each other: each hides what is beneath, so that the tint at a place is the tint
/// of the topmost area there, or that of the ground.
class BlendLayer {
public:
    explicit BlendLayer(const Tint& ground) : ground_(ground) {}

    void add(BlendArea area);
    [[nodiscard]] std::size_t size() const { return areas_.size(); }
    [[nodiscard]] const BlendArea& operator[](std::size_t index) const { return areas_[index]; }

    /// How `area` looks over the lowest `count` areas: areas to be put on top of the layer, in that
    /// order. The first is `area` in the tint that most of it may have, the others are its pieces
    /// over something else, whole and not only where they show, so that no seams are between them.
    [[nodiscard]] std::vector<BlendArea> mix(const BlendArea& area, std::size_t count,
                                             BlendBudget& budget) const;
    /// The tint at a place among the lowest `count` areas.
    [[nodiscard]] Tint tintAt(scene::Point p, std::size_t count, BlendBudget& budget) const;

private:
    /// Calls `visit` for the areas among the lowest `count` whose boxes meet `box`, the topmost
    /// first, until it returns false.
    void forEachIn(const scene::Rect& box, std::size_t count, BlendBudget& budget,
                   const std::function<bool(const BlendArea&)>& visit) const;

    Tint ground_;
    std::deque<BlendArea> areas_;
    std::vector<scene::Rect> boxes_;       ///< of the areas
    std::vector<scene::Rect> blockBoxes_;  ///< around blocks of them
};

}  // namespace psrender::plan
