#pragma once

#include "psrender/plan/blend/Look.h"
#include "psrender/plan/geometry/Polygons.h"
#include "psrender/scene/Geometry.h"

#include <array>
#include <cstddef>

namespace psrender::plan {

/// What a look is like at places spread evenly over a box.
class SampleGrid {
public:
    static constexpr std::size_t kSide = 12;
    static constexpr std::size_t kCount = kSide * kSide;

    /// Places outside of `area`, if it is not null, do not count unless most are.
    SampleGrid(const Look& look, const scene::Rect& box, const Polygons* area);

    [[nodiscard]] scene::Point place(std::size_t index) const;
    [[nodiscard]] const Sample& operator[](std::size_t index) const { return samples_[index]; }
    [[nodiscard]] bool counts(std::size_t index) const { return counts_[index]; }

    /// The unit vector along which the samples change most.
    [[nodiscard]] scene::Point direction() const;

private:
    void findInside(const Polygons& area);
    void findInside(const Polygons& area, std::size_t row);

    scene::Rect box_;
    std::array<Sample, kCount> samples_{};
    std::array<bool, kCount> counts_{};
};

}  // namespace psrender::plan
