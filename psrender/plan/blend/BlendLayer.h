#pragma once

#include "psrender/plan/blend/BlendArea.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <vector>

namespace psrender::plan {

/// Areas on top of each other: each hides what is beneath, so that what is seen at a place is the
/// topmost area there, or the ground.
class BlendLayer {
public:
    explicit BlendLayer(const Tint& ground) : ground_(ground) {}

    void add(BlendArea area);
    /// Says that nothing is seen of an area any more, so that it need not be looked at.
    void hide(std::size_t index) { isHidden_[index] = true; }
    [[nodiscard]] bool isHidden(std::size_t index) const { return isHidden_[index]; }
    [[nodiscard]] std::size_t size() const { return areas_.size(); }
    [[nodiscard]] const BlendArea& operator[](std::size_t index) const { return areas_[index]; }

    /// How an area looks over the layer.
    struct Mix {
        std::vector<BlendArea> areas;     ///< to be put on top of the layer, in this order
        std::vector<std::size_t> hidden;  ///< areas that these hide entirely
        std::size_t averages = 0;         ///< places where one of the two counts with its average
    };

    /// How `area` looks over the lowest `count` areas. The first of the result is `area` as most of
    /// it may look, the others are its pieces over something else, whole and not only where they
    /// show, so that no seams are between them.
    [[nodiscard]] Mix mix(const BlendArea& area, std::size_t count, Budget& budget) const;
    /// What is seen at a place among the lowest `count` areas.
    [[nodiscard]] Appearance appearanceAt(scene::Point p, std::size_t count, Budget& budget) const;

private:
    /// Calls `visit` for the areas among the lowest `count` whose boxes meet `box`, the topmost
    /// first and none that is hidden, until it returns false.
    void forEachIn(const scene::Rect& box, std::size_t count, Budget& budget,
                   const std::function<bool(std::size_t)>& visit) const;

    Appearance ground_;
    std::deque<BlendArea> areas_;
    std::vector<bool> isHidden_;           ///< of the areas
    std::vector<scene::Rect> boxes_;       ///< of the areas
    std::vector<scene::Rect> blockBoxes_;  ///< around blocks of them
};

}  // namespace psrender::plan
