#pragma once

#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace psrender::plan {

/// The gradients that the back end draws itself. In one document they all run through the same
/// list of colours and differ in the positions only. So each names the colours of all that came
/// before it as well, those to one side of its own being pushed to the start and the others to the
/// end. As the list is written with each use, it is kept short: the first gradients of a document
/// find room in it, those with the same colours as one of them too, and all others do not.
class NativeGradients {
public:
    /// `gradient`, whose stops must be opaque, as the back end knows it: it shows nothing beyond
    /// start and end, so both are moved out until they take in `box`, which is in the space of
    /// the outline. Nothing if it is not for the back end, or if more than `mostColors` would have
    /// to be written for it.
    std::optional<scene::Gradient> find(const scene::Gradient& gradient, const scene::Rect& box,
                                        std::size_t mostColors);

private:
    using Stops = std::vector<scene::ColorStop>;

    /// Where the colours of `stops` begin in the list; nothing if they find no room. The centre of
    /// a radial gradient shows what is pushed to the start: it goes to the list's begin only.
    std::optional<std::size_t> placeOf(const Stops& stops, bool isRadial, std::size_t mostColors);
    [[nodiscard]] Stops withAllColors(const Stops& stops, std::size_t place) const;

    std::vector<scene::Color> colors_;
    /// The gradients in the list: where they begin and how many colours they have.
    std::vector<std::pair<std::size_t, std::size_t>> runs_;
};

}  // namespace psrender::plan
