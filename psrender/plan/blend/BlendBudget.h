#pragma once

#include <cstddef>

namespace psrender::plan {

/// What blending may still cost on a page, so that it takes seconds at most.
struct BlendBudget {
    std::size_t steps = 1'000'000'000;  ///< boxes that are looked at
    std::size_t work = 400'000'000;     ///< comparisons of edges of polygons that are cut
    std::size_t pieces = 200'000;
    std::size_t gradients = 5'000;  ///< that are painted, as each is a definition of its own
    std::size_t fits = 400'000;     ///< of gradients, to find out how looks can be painted

    /// Areas of several colours that were taken for one of their average.
    std::size_t averages = 0;

    /// Takes `amount` off `part`; false once there is none left.
    static bool spend(std::size_t& part, std::size_t amount) {
        part = part > amount ? part - amount : 0;
        return part > 0;
    }
    /// Whether looks of several colours may still be painted as such.
    [[nodiscard]] bool hasGradients() const { return gradients > 0 && fits > 0; }
    [[nodiscard]] bool isSpent() const { return steps == 0 || work == 0 || pieces == 0; }
};

}  // namespace psrender::plan
