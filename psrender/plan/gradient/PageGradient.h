#pragma once

#include "psrender/plan/gradient/ColorStops.h"
#include "psrender/scene/DisplayList.h"

#include <array>
#include <memory>

namespace psrender::plan {

/// Red, green and blue from 0 to 255, each times the alpha, and the alpha.
using Sample = std::array<double, 4>;

Sample sampleOf(const scene::Color& color, double alpha);
/// The colour of an opaque sample.
scene::Color colorOf(const Sample& sample);

/// A gradient on the page, ready to be asked for its colours.
class PageGradient {
public:
    /// `gradient.transform` must lead to the page and have an inverse.
    explicit PageGradient(scene::Gradient gradient);

    [[nodiscard]] const scene::Gradient& gradient() const { return gradient_; }
    [[nodiscard]] const ColorStops& stops() const { return *gradient_.stops; }
    /// How far along the gradient a place is: 0 at its start, 1 at its end.
    [[nodiscard]] double along(scene::Point onPage) const;
    [[nodiscard]] Sample at(scene::Point onPage) const;

    /// Whether both differ in their colours only.
    [[nodiscard]] bool isAlongside(const PageGradient& other) const;
    [[nodiscard]] std::shared_ptr<const PageGradient> with(ColorStops stops) const;

private:
    [[nodiscard]] double alongRadius(scene::Point p) const;

    scene::Gradient gradient_;
    scene::Affine fromPage_;
};

}  // namespace psrender::plan
